// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace comfortics::output {

/// Takes bytes one after the other.
class ByteSink {
public:
    virtual ~ByteSink() = default;
    /// False once a write has failed; whoever writes stops then.
    virtual bool write(std::string_view bytes) = 0;
};

/// What became of a file: nothing to say, or one sentence for the user.
struct WriteResult {
    std::string error;
    bool succeeded() const noexcept { return error.empty(); }
};

/// An AtomicFile for whoever wants an answer and no exception. Where anything fails, or `produce`
/// answers false, an existing file stays as it was and no other is left behind.
WriteResult writeWholeFile(const std::string& path, const std::function<bool(ByteSink&)>& produce);

} // namespace comfortics::output
