// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

namespace comfortics::ui {

/// The documents of the program, written in Markdown: their headings are anchors, by the words that links
/// to them have.
class GuidePages : public QTextBrowser {
    Q_OBJECT

public:
    explicit GuidePages(QWidget* parent = nullptr);

    /// The anchor that a heading has: small letters, digits and hyphens.
    static QString anchorOf(const QString& heading);

    /// The anchors of the page that is shown.
    QStringList anchors() const;

    /// Opens the user guide at a chapter, at its start where there is none of that anchor.
    void open(const QString& chapter);

    /// Goes to the next place of the text or the one before, from the end to the other; false, and stays,
    /// where the page has none.
    bool search(const QString& text, bool backwards);

signals:
    /// A link leads to a file that the program does not have with it.
    void missed(const QString& name);

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    QVariant loadResource(int type, const QUrl& name) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOutAnew();

    int m_pictureWidth = 0;
};

} // namespace comfortics::ui
