// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#pragma GCC visibility push(default)
namespace comfortics {

/// The version of the library that runs, for instance "1.2.0". Versions follow semver.org.
std::string_view version() noexcept;

} // namespace comfortics
#pragma GCC visibility pop
