// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workspace/report.h"
#include "workspace/session_desk.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::workspace {

/// Makes a PDF of a page. The window has the means.
class PageMaker {
public:
    virtual ~PageMaker() = default;
    /// The bytes of the file; empty where none could be made.
    virtual std::string pdf(const ReportPage& page) = 0;
};

/// Reports of the present situation: which indices they hold, and where they go. Heading and notes are those
/// of the session.
class ReportDesk {
public:
    enum class Form : std::uint8_t { Pdf, Html };
    enum class Choice : std::uint8_t {
        Cards, ///< the indices of the cards
        Ticked ///< all ticked ones with a value
    };

    /// All must outlive the desk.
    ReportDesk(Workspace& workspace, SessionDesk& session, controls::FileDialogs& files,
               controls::Messages& messages, PageMaker& maker);
    ReportDesk(const ReportDesk&) = delete;
    ReportDesk& operator=(const ReportDesk&) = delete;

    Choice choice = Choice::Cards;
    /// Date and time on the page; the clock's where it is empty.
    std::string when;

    ReportRequest request() const;
    /// With the chart in a width.
    ReportPage page(int width = kReportWidth) const;

    /// Asks for a file and writes the report, whole or not at all.
    void save(Form form);
    /// The same without asking.
    void write(Form form, const std::string& path);

private:
    std::vector<Item> indices() const;

    Workspace& m_workspace;
    SessionDesk& m_session;
    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    PageMaker& m_maker;
};

/// Asks for the file of a report, whose name without an ending is offered; none where the user cancels.
std::optional<std::string> askForReport(controls::FileDialogs& files, bool pdf, const std::string& name);

/// Date and time of the local clock, for instance "2026-07-21 14:05".
std::string clockText();

} // namespace comfortics::workspace
