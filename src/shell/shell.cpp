// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shell.h"

#include "catalogue/catalogue.h"
#include "catalogue/references.h"
#include "shell/status_line.h"

#include <chrono>
#include <ctime>

namespace comfortics::shell {

using batch::Frm_Raw_Data;
using converter::Frm_Converter;
using output::Frm_Comfortics;
using radiation::Frm_Radiation;

namespace {

constexpr const char* kEarlier =
    "Of earlier readings or options: a new calculation shows those that stand now.";
constexpr const char* kForgotten = "The reason is no longer known: something else was calculated since.";

// By the local clock.
radiation::Date today()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return {std::chrono::year(local.tm_year + 1900),
            std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
            std::chrono::day(static_cast<unsigned>(local.tm_mday))};
}

} // namespace

Shell::Shell(const std::filesystem::path& programFolder, const Desktop& desktop)
    : splash([this] { return std::make_unique<Frm_Splash_Screen>([this] { handOver(); }); }), results([this] {
          auto form = std::make_unique<Frm_Comfortics>(m_desktop.clipboard, m_desktop.messages,
                                                       m_desktop.files, m_desktop.printing);
          form->provideReasons([this](int index) {
              return m_tableRun == m_main.calculation.runs() ? m_main.calculation.whyBlank(index)
                                                             : std::string(kForgotten);
          });
          form->provideLiterature(catalogue::literatureNote);
          return form;
      }),
      converter([this] { return std::make_unique<Frm_Converter>(m_main); }), radiation([this] {
          return std::make_unique<Frm_Radiation>(
              Frm_Radiation::Surroundings{m_desktop.messages, m_desktop.clipboard, m_desktop.files,
                                          m_desktop.maps->connection, m_desktop.maps->map,
                                          m_desktop.maps->timeZones},
              today());
      }),
      rawData([this] {
          return std::make_unique<Frm_Raw_Data>(
              m_main, m_limits, Frm_Raw_Data::Desktop{m_messages, m_desktop.clipboard, m_desktop.files});
      }),
      m_limits(classic::Limits::Load_Limits((programFolder / "Limits.Index").string())), m_desktop(desktop),
      m_messages(desktop.messages), m_main(m_limits, m_messages, *this),
      m_workspace(m_limits, m_main, desktop.preferences ? *desktop.preferences : m_transient),
      m_session(m_workspace, desktop.files, desktop.messages)
{
    m_main.Menu_Radiation.setEnabled(desktop.maps != nullptr);
    m_main.standing.handle([this] { tellStanding(); });
    m_session.add(m_comparison);
}

void Shell::start()
{
    splash.touch().show();
}

void Shell::handOver()
{
    m_main.show();
    splash.unload();
}

std::string Shell::limitsWarning() const
{
    return classic::limitsWarning(m_limits);
}

// Figures of earlier inputs stay and are said to be so.
void Shell::tellStanding()
{
    if (rawData.get() != nullptr)
        rawData.get()->tellTerms();
    if (results.get() != nullptr)
        results.get()->lbl_Earlier.setCaption(m_tableInputs && *m_tableInputs != m_main.inputs() ? kEarlier
                                                                                                 : "");
}

void Shell::tableIsOfStore()
{
    m_tableInputs = m_main.calculation.resultInputs();
    m_tableRun = m_main.calculation.runs();
    results.get()->lbl_In_Force.setCaption(m_tableInputs ? "By " + classic::inForce(m_tableInputs->settings)
                                                         : "");
    tellStanding();
}

void Shell::showResults()
{
    const classic::Frm_Results& store = m_main.results;
    results.touch().showResults(store.controlCount() / 3 - 1, [this, &store](std::size_t index) {
        const int number = static_cast<int>(index);
        return output::ResultRow{.name = store.lbl_Index[index].caption(),
                                 .value = store.lbl_results[index].caption(),
                                 .unit = store.lbl_Unit[index].caption(),
                                 .doubt = m_main.calculation.whyDoubtful(number),
                                 .meaning = m_main.calculation.meaning(number)};
    });
    tableIsOfStore();
}

void Shell::showRawData()
{
    rawData.touch().open(results.touch());
    tableIsOfStore();
}

void Shell::showRadiation()
{
    if (m_desktop.maps)
        radiation.touch().show();
}

void Shell::showConverter()
{
    converter.touch().show();
}

std::string Shell::converter_lbl_C()
{
    return converter.get() ? converter.get()->lbl_C.caption() : std::string();
}

std::string Shell::converter_lbl_WS()
{
    return converter.get() ? converter.get()->lbl_WS.caption() : std::string();
}

std::string Shell::converter_lbl_SR()
{
    return converter.get() ? converter.get()->lbl_SR.caption() : std::string();
}

void Shell::unloadAll()
{
    splash.unload();
    results.unload();
    converter.unload();
    radiation.unload();
    rawData.unload();
    m_main.hide();
    ended.raise();
}

} // namespace comfortics::shell
