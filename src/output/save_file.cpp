// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/save_file.h"

#include "texts/text.h"

#include <algorithm>

namespace comfortics::output {

std::string withEnding(const std::string& name, std::initializer_list<std::string_view> endings)
{
    const std::string lowered = texts::lowered(name);
    const bool ended = std::any_of(endings.begin(), endings.end(),
                                   [&lowered](std::string_view ending) { return lowered.ends_with(ending); });
    return ended ? name : name + std::string(*endings.begin());
}

std::optional<std::string> askForFile(controls::FileDialogs& files, const controls::SaveRequest& request)
{
    auto path = files.askSave(request);
    if (!path || path->empty())
        return std::nullopt;
    return request.written ? request.written(*path) : *path;
}

bool succeeded(const WriteResult& result, controls::Messages& messages, const std::string& title)
{
    if (!result.succeeded())
        messages.show({.text = result.error, .title = title});
    return result.succeeded();
}

WriteResult writeWhole(const std::string& path, std::string_view bytes)
{
    WholeFile file(path);
    file.write(bytes);
    return file.commit();
}

} // namespace comfortics::output
