// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/guide_pages.h"

#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cstdlib>

namespace comfortics::ui {

namespace {

constexpr int kPictureMargin = 24; // of the page, and room for the scroll bar
constexpr int kPictureStep = 16;   // a smaller change of the width leaves the pictures as they are
const QString kFolder = QStringLiteral("qrc:/guide/");
const QString kGuide = kFolder + QStringLiteral("user-guide.md");

// The headings get the names that Markdown leaves them without.
QString richText(const QString& markdown)
{
    QTextDocument page;
    page.setMarkdown(markdown);
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || block.text().isEmpty())
            continue;
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        QTextCharFormat format;
        format.setAnchor(true);
        format.setAnchorNames({GuidePages::anchorOf(block.text())});
        cursor.mergeCharFormat(format);
    }
    return page.toHtml();
}

} // namespace

GuidePages::GuidePages(QWidget* parent) : QTextBrowser(parent)
{
    setOpenExternalLinks(true);
}

QString GuidePages::anchorOf(const QString& heading)
{
    QString anchor;
    for (const QChar character : heading.toLower()) {
        if (character.isLetterOrNumber() || character == QLatin1Char('-') || character == QLatin1Char('_'))
            anchor += character;
        else if (character.isSpace())
            anchor += QLatin1Char('-');
    }
    return anchor;
}

QStringList GuidePages::anchors() const
{
    QStringList found;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        if (block.blockFormat().headingLevel() > 0)
            found += anchorOf(block.text());
    return found;
}

void GuidePages::open(const QString& chapter)
{
    QUrl url(kGuide);
    url.setFragment(chapter);
    setSource(url);
}

void GuidePages::doSetSource(const QUrl& url, QTextDocument::ResourceType)
{
    const QUrl whole = source().resolved(url);
    if (whole.scheme() == QLatin1String("qrc") && !QFile::exists(QLatin1Char(':') + whole.path())) {
        emit missed(whole.fileName());
        return;
    }
    // As Markdown the page would be laid out anew with each of its lines.
    QTextBrowser::doSetSource(whole, QTextDocument::HtmlResource);
    if (whole.hasFragment()) {
        scrollToAnchor(whole.fragment());
        setTextCursor(cursorForPosition({0, 0})); // from where a search goes on
    }
}

bool GuidePages::search(const QString& text, bool backwards)
{
    const QTextDocument::FindFlags flags =
        backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (find(text, flags))
        return true;
    const QTextCursor before = textCursor();
    moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (find(text, flags))
        return true;
    setTextCursor(before);
    return false;
}

// Headings have sizes of their own, made from that of the letters when the page was read.
void GuidePages::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        layOutAnew();
}

void GuidePages::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    if (std::abs(viewport()->width() - m_pictureWidth) > kPictureStep)
        layOutAnew();
}

// At the same place of the text.
void GuidePages::layOutAnew()
{
    m_pictureWidth = viewport()->width();
    if (source().isEmpty())
        return;
    const int place = cursorForPosition({0, 0}).position();
    reload();
    QTextCursor cursor(document());
    cursor.setPosition(std::min(place, document()->characterCount() - 1));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top());
}

// Pictures as wide as the page, at most.
QVariant GuidePages::loadResource(int type, const QUrl& name)
{
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type == QTextDocument::HtmlResource)
        return richText(QString::fromUtf8(resource.toByteArray()));
    if (type != QTextDocument::ImageResource || m_pictureWidth <= kPictureMargin)
        return resource;
    QImage picture = QImage::fromData(resource.toByteArray());
    const double pixels = devicePixelRatioF();
    const int most = static_cast<int>((m_pictureWidth - kPictureMargin) * pixels);
    if (picture.width() > most)
        picture = picture.scaledToWidth(most, Qt::SmoothTransformation);
    else if (pixels > 1)
        picture = picture.scaledToWidth(std::min(most, static_cast<int>(picture.width() * pixels)),
                                        Qt::SmoothTransformation);
    picture.setDevicePixelRatio(pixels);
    return picture;
}

} // namespace comfortics::ui
