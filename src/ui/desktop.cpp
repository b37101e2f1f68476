// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop.h"

#include "ui/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>

namespace comfortics::ui {

using controls::Answer;

namespace {

// What says nothing of its icon and asks nothing is bad news.
QMessageBox::Icon icon(const controls::MessageBox& box)
{
    switch (box.icon) {
    case controls::Icon::Question:
        return QMessageBox::Question;
    case controls::Icon::Information:
        return QMessageBox::Information;
    case controls::Icon::None:
        break;
    }
    return box.buttons == controls::Buttons::Ok ? QMessageBox::Warning : QMessageBox::Question;
}

// What stands before the bar is for the user. Without a pattern of its own it filters nothing.
QString nameFilter(const std::string& filter)
{
    const QString text = toQt(filter);
    return text.left(text.indexOf(QLatin1Char('|'))); // all of it where there is no bar
}

std::optional<std::string> chosen(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return fromQt(dialog.selectedFiles().first());
}

} // namespace

Answer DesktopMessages::show(const controls::MessageBox& box)
{
    const bool question = box.buttons == controls::Buttons::YesNo;
    QMessageBox dialog(QApplication::activeWindow());
    dialog.setIcon(icon(box));
    dialog.setWindowTitle(box.title.empty() ? QStringLiteral("Comfortics") : toQt(box.title));
    dialog.setTextFormat(Qt::PlainText);
    dialog.setText(toQt(box.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    dialog.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (!box.checkBox.empty())
        dialog.setCheckBox(new QCheckBox(withMnemonic(box.checkBox)));
    const int answer = dialog.exec();
    if (box.checked && dialog.checkBox())
        *box.checked = dialog.checkBox()->isChecked();
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
    dialog.setNameFilter(nameFilter(request.filter));
    dialog.selectFile(toQt(request.fileName));
    return chosen(dialog);
}

std::optional<std::string> DesktopFileDialogs::askOpen(const controls::OpenRequest& request)
{
    QFileDialog dialog(QApplication::activeWindow(), toQt(request.title));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({nameFilter(request.filter), QStringLiteral("All files (*)")});
    return chosen(dialog);
}

} // namespace comfortics::ui
