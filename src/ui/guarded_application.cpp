// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/guarded_application.h"

#include "shell/last_words.h"

#include <cstdlib>
#include <utility>

namespace comfortics::ui {

GuardedApplication::GuardedApplication(int& argc, char** argv, Tell tell)
    : QApplication(argc, argv), m_tell(std::move(tell))
{
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        constexpr int kRunFailed = 4; // as the terminal tool
        shell::sayLastWords("comfortics");
        if (!std::exchange(m_ending, true)) {
            try {
                m_tell(shell::lastWords());
            } catch (...) { // it stands on standard error
            }
        }
        std::_Exit(kRunFailed); // no handler further out goes on
    }
}

} // namespace comfortics::ui
