// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/session.h"

#include <string>

namespace comfortics::workspace {

/// Something besides the main window that a session keeps: index sets, pinned situations, the person.
class SessionPart {
public:
    virtual ~SessionPart() = default;
    virtual void save(Session& session) const = 0;
    /// A clause on what is damaged in its part, empty where nothing is. Changes nothing.
    virtual std::string fault(const Session& session) const = 0;
    /// Takes its part of a session without a fault.
    virtual void open(const Session& session) = 0;
};

} // namespace comfortics::workspace
