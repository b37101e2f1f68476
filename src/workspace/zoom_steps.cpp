// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/zoom_steps.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace comfortics::workspace {

namespace {

constexpr const char* kKey = "window/zoom";

} // namespace

int nearestZoom(int percent)
{
    return *std::min_element(kZoomSteps.begin(), kZoomSteps.end(), [percent](int a, int b) {
        return std::abs(static_cast<long>(a) - percent) < std::abs(static_cast<long>(b) - percent);
    });
}

int nextZoom(int percent, bool larger)
{
    const auto* const here = std::find(kZoomSteps.begin(), kZoomSteps.end(), nearestZoom(percent));
    if (larger)
        return here + 1 == kZoomSteps.end() ? *here : *(here + 1);
    return here == kZoomSteps.begin() ? *here : *(here - 1);
}

int keptZoom(const Preferences& preferences)
{
    const std::string text = preferences.read(kKey).value_or("");
    int percent = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), percent);
    const bool isStep = error == std::errc() && end == text.data() + text.size() &&
                        std::find(kZoomSteps.begin(), kZoomSteps.end(), percent) != kZoomSteps.end();
    return isStep ? percent : kZoomOriginal;
}

void keepZoom(Preferences& preferences, int percent)
{
    if (percent == kZoomOriginal)
        preferences.remove(kKey);
    else
        preferences.write(kKey, std::to_string(percent));
}

} // namespace comfortics::workspace
