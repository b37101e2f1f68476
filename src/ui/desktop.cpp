// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop.h"

#include "ui/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

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

// What stands before the bar: Qt takes the patterns from the brackets there.
QString nameFilter(const std::string& filter)
{
    const QString text = toQt(filter);
    return text.left(text.indexOf(QLatin1Char('|'))); // all of it where there is no bar
}

// Qt's own dialog. The one of a desktop would be gone by the time that its answer can be looked at, and
// asks about the name as typed.
class SaveDialog final : public QFileDialog {
public:
    explicit SaveDialog(const controls::SaveRequest& request)
        : QFileDialog(QApplication::activeWindow(), toQt(request.title)), m_request(request)
    {
        setOption(DontUseNativeDialog);
        setOption(DontConfirmOverwrite); // asked below
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        setNameFilter(nameFilter(request.filter));
        selectFile(toQt(request.fileName));
    }

protected:
    void done(int result) override
    {
        if (result == Rejected || mayWrite())
            QFileDialog::done(result);
    }

private:
    bool mayWrite()
    {
        const QString path = selectedFiles().value(0);
        const QFileInfo file(m_request.written ? toQt(m_request.written(fromQt(path))) : path);
        const QString folder = file.absolutePath();
        if (!QFileInfo(folder).isDir())
            return refuse(QStringLiteral("There is no folder %1.").arg(folder));
        if (file.isDir())
            return refuse(QStringLiteral("%1 is a folder.").arg(file.fileName()));
        if (!m_request.overwritePrompt || !file.exists())
            return true;
        return QMessageBox::warning(
                   this, windowTitle(),
                   QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(file.fileName()),
                   QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
    }

    bool refuse(const QString& why)
    {
        QMessageBox::warning(this, windowTitle(), why);
        return false;
    }

    const controls::SaveRequest& m_request;
};

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
    const QPushButton* const offer =
        box.offer.empty() ? nullptr : dialog.addButton(withMnemonic(box.offer), QMessageBox::ActionRole);
    // What is asked could lose something: Enter and Escape lose nothing, and take no offer.
    dialog.setDefaultButton(question ? QMessageBox::No : QMessageBox::Ok);
    dialog.setEscapeButton(question ? QMessageBox::No : QMessageBox::Ok);
    if (!box.checkBox.empty())
        dialog.setCheckBox(new QCheckBox(withMnemonic(box.checkBox)));
    const int answer = dialog.exec();
    if (box.checked && dialog.checkBox())
        *box.checked = dialog.checkBox()->isChecked();
    if (offer && dialog.clickedButton() == offer)
        return Answer::Yes;
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
    SaveDialog dialog(request);
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
