// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop.h"

#include "ui/text.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>

namespace comfortics::ui {

using controls::Answer;

namespace {

QMessageBox::Icon icon(controls::Icon wanted)
{
    switch (wanted) {
    case controls::Icon::Question:
        return QMessageBox::Question;
    case controls::Icon::Information:
        return QMessageBox::Information;
    case controls::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

Answer DesktopMessages::show(const controls::MessageBox& box)
{
    const bool question = box.buttons == controls::Buttons::YesNo;
    QMessageBox dialog(QApplication::activeWindow());
    dialog.setIcon(icon(box.icon));
    dialog.setWindowTitle(box.title.empty() ? QStringLiteral("Comfortics") : toQt(box.title));
    dialog.setTextFormat(Qt::PlainText);
    dialog.setText(toQt(box.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    dialog.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    const int answer = dialog.exec();
    if (question)
        return answer == QMessageBox::Yes ? Answer::Yes : Answer::No;
    return Answer::Ok;
}

void DesktopClipboard::clear()
{
    QApplication::clipboard()->clear();
}

void DesktopClipboard::setText(const std::string& text)
{
    QApplication::clipboard()->setText(toQt(text));
}

std::string DesktopClipboard::text()
{
    return fromQt(QApplication::clipboard()->text());
}

std::optional<std::string> DesktopFileDialogs::askSave(const controls::SaveRequest& request)
{
    QFileDialog dialog(QApplication::activeWindow(), toQt(request.title));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
    // What stands before the bar is for the user. Without a pattern of its own it filters nothing.
    const QString filter = toQt(request.filter);
    const qsizetype bar = filter.indexOf(QLatin1Char('|'));
    dialog.setNameFilter(bar < 0 ? filter : filter.left(bar));
    dialog.selectFile(toQt(request.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return fromQt(dialog.selectedFiles().first());
}

} // namespace comfortics::ui
