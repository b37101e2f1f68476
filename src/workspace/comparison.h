// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/session_desk.h"
#include "workspace/situation.h"
#include "workspace/workspace.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

/// A situation that is kept to be compared with the present one.
struct Pin {
    std::string name;
    std::string time; ///< when it was pinned, as timeText() writes it
    classic::Inputs inputs;

    friend bool operator==(const Pin&, const Pin&) = default;
};

/// "2026-11-23 14:05 UTC".
std::string timeText(std::chrono::system_clock::time_point time);

/// The pinned situations, in the order in which they stand beside the present one. What was pinned is its
/// readings, assumptions and options: the figures are calculated anew when a session is opened.
class Comparison final : public SessionPart {
public:
    static constexpr std::size_t kMostPins = 12;
    static constexpr std::size_t kLongestName = 80; ///< [bytes]

    /// The workspace must outlive the comparison.
    explicit Comparison(Workspace& workspace) : m_workspace(workspace) {}

    /// Pins what stands in the form, under a name of its own. Answers in a sentence why it does not; empty
    /// where it does.
    std::string pinPresent(std::chrono::system_clock::time_point time);
    /// An empty name, or one that is too long, leaves the old one.
    void rename(std::size_t place, const std::string& name);
    void move(std::size_t from, std::size_t to);
    void remove(std::size_t place);

    std::size_t count() const noexcept { return m_pinned.size(); }
    const Pin& pin(std::size_t place) const { return m_pinned.at(place).pin; }
    const Situation& situation(std::size_t place) const { return m_pinned.at(place).situation; }
    Workspace& workspace() const noexcept { return m_workspace; }

    /// Pins came, went, moved or have another name.
    controls::Event changed;

    /// The pins as JSON; empty where there are none.
    std::string json() const;
    /// A clause on what is damaged in such a text, empty where nothing is.
    static std::string fault(std::string_view json);
    /// Takes the pins of a text without a fault in place of those that are there.
    void restore(std::string_view json);

    void save(Session& session) const override { session.pinned = json(); }
    std::string fault(const Session& session) const override { return fault(session.pinned); }
    void open(const Session& session) override { restore(session.pinned); }

private:
    struct Pinned {
        Pin pin;
        Situation situation;
    };
    std::string freeName() const;
    Pinned calculated(Pin pin) const;

    Workspace& m_workspace;
    std::vector<Pinned> m_pinned;
};

} // namespace comfortics::workspace
