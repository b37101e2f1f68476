// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"

namespace comfortics::batch {

/// Passes the main window's message boxes on to the user, but for the time that it is hushed. The
/// batch sheet computes its last row once more in the main window, and what there was to say of
/// that row has been said.
class MessageGate final : public controls::Messages {
public:
    explicit MessageGate(controls::Messages& user) : m_user(user) {}

    controls::Answer show(const controls::MessageBox& box) override
    {
        return m_hushed ? controls::Answer::Ok : m_user.show(box);
    }

    /// While it lives, the gate is hushed.
    class Hush {
    public:
        explicit Hush(MessageGate& gate) : m_gate(gate) { gate.m_hushed = true; }
        ~Hush() { m_gate.m_hushed = false; }
        Hush(const Hush&) = delete;
        Hush& operator=(const Hush&) = delete;

    private:
        MessageGate& m_gate;
    };

private:
    controls::Messages& m_user;
    bool m_hushed = false;
};

} // namespace comfortics::batch
