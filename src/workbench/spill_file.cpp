// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/spill_file.h"

#include "tables/row_source.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <cstdlib>
#include <unistd.h>

namespace comfortics::workbench {

namespace {

constexpr std::size_t kHeld = std::size_t{1} << 18;

[[noreturn]] void fail(std::string_view what)
{
    throw tables::TableFault("A temporary file cannot be " + std::string(what) + ": " +
                             std::generic_category().message(errno) + ".");
}

} // namespace

SpillFile::SpillFile()
{
    std::error_code ignored;
    std::string name = (std::filesystem::temp_directory_path(ignored) / "comfortics-XXXXXX").string();
    m_descriptor = ::mkstemp(name.data());
    if (m_descriptor < 0)
        fail("made");
    ::unlink(name.c_str());
}

SpillFile::~SpillFile()
{
    ::close(m_descriptor);
}

void SpillFile::add(std::string_view record)
{
    m_held += record;
    m_size += record.size();
    m_ends.push(m_size);
    if (m_held.size() >= kHeld)
        finish();
}

void SpillFile::finish()
{
    std::string_view rest = m_held;
    while (!rest.empty()) {
        const ssize_t count = ::write(m_descriptor, rest.data(), rest.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            fail("written");
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    m_held.clear();
}

std::string SpillFile::record(std::size_t place) const
{
    const std::uint64_t begin = place == 0 ? 0 : m_ends[place - 1];
    std::string text(m_ends[place] - begin, '\0');
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count =
            ::pread(m_descriptor, text.data() + done, text.size() - done, static_cast<off_t>(begin + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            fail("read");
        done += static_cast<std::size_t>(count);
    }
    return text;
}

} // namespace comfortics::workbench
