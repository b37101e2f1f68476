// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workspace/recent_files.h"
#include "workspace/session.h"
#include "workspace/session_part.h"
#include "workspace/workspace.h"

#include <memory>
#include <string>
#include <vector>

namespace comfortics::workspace {

/// Opens and saves sessions, knows the recent ones, and keeps the last state between sessions.
class SessionDesk {
public:
    /// All must outlive the desk, the parts too.
    SessionDesk(Workspace& workspace, controls::FileDialogs& files, controls::Messages& messages);
    SessionDesk(const SessionDesk&) = delete;
    SessionDesk& operator=(const SessionDesk&) = delete;

    void add(SessionPart& part) { m_parts.push_back(&part); }

    /// Asks for a file and opens it. A file that cannot be opened is told in one sentence and changes
    /// nothing.
    void open();
    void openFile(const std::string& path);
    /// Saves to the file that was opened or saved last; asks for one where there is none.
    void save();
    void saveAs();

    /// The file of the session, empty where it has none yet.
    const std::string& path() const noexcept { return m_path; }
    /// What a save would write is not what the file holds.
    bool modified() const;

    /// Paths of the sessions opened or saved last, the newest first.
    std::vector<std::string> recent() const;
    void forgetRecent();

    /// Keeps the present state for the next session. The state of a form that was never written to is not
    /// worth it.
    void keepLast();
    /// There is a state of an earlier session, and it is not the present one.
    bool hasLast() const;
    void restoreLast();

    /// Path or recent files have changed.
    controls::Event changed;

    /// Heading and notes of the report, kept with the session.
    std::string heading;
    std::string notes;

private:
    Session collect() const;
    std::string take(const Session& session);
    void saveTo(const std::string& path);
    void remember(const std::string& path);
    void complain(const std::string& sentence);

    Workspace& m_workspace;
    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    RecentFiles m_recent;
    std::unique_ptr<SessionPart> m_sets; // those of the workspace
    std::vector<SessionPart*> m_parts;
    std::string m_path;
    Session m_start; // as the program came up
    Session m_saved; // as the file holds it
    std::string m_last;
};

} // namespace comfortics::workspace
