// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/picture_file.h"

#include "output/save_file.h"
#include "texts/text.h"

namespace comfortics::ui {

namespace {

constexpr const char* kTitle = "Save Chart";
constexpr const char* kSvg = ".svg";

} // namespace

std::optional<std::string> askForPicture(controls::FileDialogs& files, const std::string& name, bool pdf)
{
    return output::askForFile(
        files, {.title = kTitle,
                .filter = pdf ? "Pictures (*.png *.svg *.pdf)" : "Pictures (*.png *.svg)",
                .fileName = name,
                .overwritePrompt = true,
                .written = [pdf](const std::string& path) {
                    return pdf && isPdf(path) ? path : output::withEnding(path, {".png", kSvg});
                }});
}

bool isSvg(const std::string& path)
{
    return texts::lowered(path).ends_with(kSvg);
}

bool isPdf(const std::string& path)
{
    return texts::lowered(path).ends_with(".pdf");
}

bool savePicture(const std::string& path, const QByteArray& picture, controls::Messages& messages)
{
    return output::succeeded(
        output::writeWhole(path, {picture.constData(), static_cast<std::size_t>(picture.size())}), messages,
        kTitle);
}

} // namespace comfortics::ui
