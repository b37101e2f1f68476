// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/session_desk.h"
#include "workspace/situation.h"
#include "workspace/workspace.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace comfortics::workspace {

/// A situation that is kept to be compared with the present one.
struct Pin {
    std::string name;
    std::string time; ///< when it was pinned, as timeText() writes it
    classic::Inputs inputs;
    FieldTexts person; ///< with which the models of standards are calculated

    friend bool operator==(const Pin&, const Pin&) = default;
};

/// "2026-11-23 14:05 UTC".
std::string timeText(std::chrono::system_clock::time_point time);

/// The pinned situations, in the order in which they stand beside the present one. What was pinned is its
/// readings, assumptions, options, person and place: the figures are calculated anew when a session is
/// opened.
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
    /// Of a pin that came from a file it may still be awaited.
    const Situation& situation(std::size_t place) const { return *m_pinned.at(place).situation; }
    Workspace& workspace() const noexcept { return m_workspace; }

    /// Pins came, went, moved or have another name.
    controls::Event changed;

    /// Who calculates what came from a file: asked for one situation after the other, he calls arrived() with
    /// it, in this thread. While there is nobody (an empty function) it is calculated at once.
    void onAsk(std::function<void(const classic::Inputs&)> ask) { m_ask = std::move(ask); }
    void arrived(const std::shared_ptr<const Situation>& situation);
    /// Calculates what is still awaited.
    void complete();

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
        std::shared_ptr<const Situation> situation;
        bool awaited = false;
    };
    std::string freeName() const;
    void askNext();

    Workspace& m_workspace;
    std::vector<Pinned> m_pinned;
    std::function<void(const classic::Inputs&)> m_ask;
};

} // namespace comfortics::workspace
