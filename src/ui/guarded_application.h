// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

#include <functional>
#include <string>

namespace comfortics::ui {

/// No exception gets through Qt's event loop. One that leaves an event's handler ends the program,
/// for what it has interrupted can have left figures that are not true: with a sentence on standard
/// error, and as `tell` shows it, and with status 4.
class GuardedApplication : public QApplication {
public:
    using Tell = std::function<void(const std::string& sentence)>;

    GuardedApplication(int& argc, char** argv, Tell tell);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    Tell m_tell;
    bool m_ending = false;
};

} // namespace comfortics::ui
