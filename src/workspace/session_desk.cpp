// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/session_desk.h"

#include "output/save_file.h"
#include "texts/bounded_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

namespace comfortics::workspace {

namespace {

constexpr const char* kTitle = "Comfortics Session";
constexpr const char* kFilter = "Comfortics sessions (*.comfortics)|*.comfortics";
constexpr const char* kEnding = ".comfortics";
constexpr const char* kRecent = "session/recent";
constexpr const char* kLast = "session/last";

std::string withEnding(const std::string& path)
{
    return std::filesystem::path(path).has_extension() ? path : path + kEnding;
}

std::string nameOf(const std::string& path)
{
    return std::filesystem::path(path).filename().string();
}

class SetsPart final : public SessionPart {
public:
    explicit SetsPart(IndexSets& sets) : m_sets(sets) {}

    void save(Session& session) const override
    {
        session.cardSet = m_sets.shown().name;
        session.ownSets = m_sets.ownAsJson();
    }
    std::string fault(const Session& session) const override
    {
        return session.ownSets.empty() || IndexSets::isJson(session.ownSets)
                   ? std::string()
                   : "the sets of indices in it are damaged";
    }
    void open(const Session& session) override
    {
        m_sets.take(session.ownSets);
        m_sets.show(session.cardSet);
    }

private:
    IndexSets& m_sets;
};

} // namespace

SessionDesk::SessionDesk(Workspace& workspace, controls::FileDialogs& files, controls::Messages& messages)
    : m_workspace(workspace), m_files(files), m_messages(messages),
      m_recent(workspace.preferences(), kRecent),
      m_sets(std::make_unique<SetsPart>(workspace.sets)), m_parts{m_sets.get(), &workspace.person},
      m_start(collect()), m_saved(m_start),
      m_last(workspace.preferences().read(kLast).value_or(std::string()))
{
}

Session SessionDesk::collect() const
{
    Session session;
    session.inputs = m_workspace.form().inputs();
    session.heading = heading;
    session.notes = notes;
    for (const SessionPart* const part : m_parts)
        part->save(session);
    return session;
}

// Judged whole before anything is taken.
std::string SessionDesk::take(const Session& session)
{
    for (const SessionPart* const part : m_parts)
        if (std::string fault = part->fault(session); !fault.empty())
            return fault;
    write(session.inputs, m_workspace.form());
    heading = session.heading;
    notes = session.notes;
    for (SessionPart* const part : m_parts)
        part->open(session);
    return {};
}

void SessionDesk::complain(const std::string& sentence)
{
    m_messages.show({.text = sentence, .title = kTitle});
}

void SessionDesk::open()
{
    if (const auto path = m_files.askOpen({.title = "Open Session", .filter = kFilter});
        path && !path->empty())
        openFile(*path);
}

void SessionDesk::openFile(const std::string& path)
{
    const texts::FileText file = texts::readFile(path, kLargestSession);
    if (file.state != texts::FileText::State::Read) {
        complain(nameOf(path) + " cannot be opened: " + file.problem + ".");
        return;
    }
    SessionRead read = readSession(file.text);
    if (read.session)
        read.fault = take(*read.session);
    if (!read.fault.empty()) {
        complain(nameOf(path) + " cannot be opened: " + read.fault + ".");
        return;
    }
    m_path = path;
    m_saved = collect();
    remember(path);
    m_workspace.form().tell(nameOf(path) + " was opened.");
}

void SessionDesk::save()
{
    if (m_path.empty())
        saveAs();
    else
        saveTo(m_path);
}

void SessionDesk::saveAs()
{
    if (const auto path =
            output::askForFile(m_files, {.title = "Save Session",
                                         .filter = kFilter,
                                         .fileName = m_path.empty() ? std::string("session") : m_path,
                                         .overwritePrompt = true,
                                         .written = withEnding}))
        saveTo(*path);
}

void SessionDesk::saveTo(const std::string& path)
{
    const Session session = collect();
    if (!output::succeeded(output::writeWhole(path, sessionText(session)), m_messages, kTitle))
        return;
    m_path = path;
    m_saved = session;
    remember(path);
    m_workspace.form().tell(nameOf(path) + " was saved.");
}

bool SessionDesk::modified() const
{
    return collect() != m_saved;
}

std::vector<std::string> SessionDesk::recent() const
{
    return m_recent.paths();
}

void SessionDesk::remember(const std::string& path)
{
    m_recent.add(path);
    changed.raise();
}

void SessionDesk::forgetRecent()
{
    m_recent.forget();
    changed.raise();
}

void SessionDesk::keepLast()
{
    const Session session = collect();
    if (session != m_start)
        m_workspace.preferences().write(kLast, sessionText(session));
}

bool SessionDesk::hasLast() const
{
    const SessionRead read = readSession(m_last);
    return read.session && *read.session != collect();
}

void SessionDesk::restoreLast()
{
    const SessionRead read = readSession(m_last);
    if (read.session && take(*read.session).empty())
        m_workspace.form().tell("The last readings are back.");
}

} // namespace comfortics::workspace
