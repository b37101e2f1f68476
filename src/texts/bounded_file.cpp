// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/bounded_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace comfortics::texts {

FileText readFile(const std::string& path, std::size_t largest)
{
    constexpr std::size_t kKibi = 1024;
    const auto reason = [] { return std::generic_category().message(errno); };
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!file) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        return {missing ? FileText::State::Missing : FileText::State::Unreadable, {}, reason()};
    }
    std::string text(largest + 1, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file.get()));
    if (std::ferror(file.get()) != 0) // a folder opens, too
        return {FileText::State::Unreadable, {}, reason()};
    if (text.size() > largest)
        return {FileText::State::Unreadable,
                {},
                "it is larger than " + std::to_string(largest / kKibi / kKibi) + " MiB"};
    return {FileText::State::Read, std::move(text), {}};
}

} // namespace comfortics::texts
