// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/report_desk.h"

#include "output/save_file.h"
#include "texts/text.h"

#include <array>
#include <cstring>
#include <ctime>
#include <filesystem>

namespace comfortics::workspace {

namespace {

constexpr std::size_t kLongestFileName = 80; // [bytes]

constexpr const char* kTitle = "Save Report";

// "Yard 3 2026-07-21": what a report is of, without what no file system takes.
std::string fileName(const std::string& heading, const std::string& when)
{
    std::string name(texts::trimmed(heading));
    std::erase_if(name, [](unsigned char c) { return c < ' ' || std::strchr("\\/:*?\"<>|", c) != nullptr; });
    if (name.empty() || name.size() > kLongestFileName || name.front() == '.')
        name = "Report";
    return name + " " + when.substr(0, when.find(' '));
}

} // namespace

ReportDesk::ReportDesk(Workspace& workspace, SessionDesk& session, controls::FileDialogs& files,
                       controls::Messages& messages, PageMaker& maker)
    : m_workspace(workspace), m_session(session), m_files(files), m_messages(messages), m_maker(maker)
{
}

std::vector<Item> ReportDesk::indices() const
{
    if (choice == Choice::Cards)
        return m_workspace.sets.shownItems();
    std::vector<int> ticked = m_workspace.form().settings().selection.indices();
    std::erase_if(ticked, [&present = m_workspace.present()](int index) {
        return !present.figure(index).number.has_value();
    });
    return {ticked.begin(), ticked.end()};
}

ReportRequest ReportDesk::request() const
{
    return {.heading = m_session.heading,
            .notes = m_session.notes,
            .when = when.empty() ? clockText() : when,
            .indices = indices(),
            .person = m_workspace.person.texts()};
}

ReportPage ReportDesk::page(int width) const
{
    return reportPage(m_workspace.present(), request(), width);
}

void ReportDesk::save(Form form)
{
    if (const auto path = askForReport(m_files, form == Form::Pdf,
                                       fileName(m_session.heading, when.empty() ? clockText() : when)))
        write(form, *path);
}

void ReportDesk::write(Form form, const std::string& path)
{
    const std::string bytes =
        form == Form::Pdf ? m_maker.pdf(page()) : reportHtml(m_workspace.present(), request());
    if (bytes.empty()) {
        m_messages.show({.text = "The report could not be made.", .title = kTitle});
        return;
    }
    if (output::succeeded(output::writeWhole(path, bytes), m_messages, kTitle))
        m_workspace.form().tell(std::filesystem::path(path).filename().string() + " was written.");
}

std::optional<std::string> askForReport(controls::FileDialogs& files, bool pdf, const std::string& name)
{
    const std::string ending = pdf ? ".pdf" : ".html";
    return output::askForFile(files, {.title = kTitle,
                                      .filter = pdf ? "PDF (*.pdf)|*.pdf" : "HTML (*.html)|*.html",
                                      .fileName = name + ending,
                                      .overwritePrompt = true,
                                      .written = [ending](const std::string& written) {
                                          return output::withEnding(written, {ending});
                                      }});
}

std::string clockText()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
    return text.data();
}

} // namespace comfortics::workspace
