// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_program.h"

#include "ui/application.h"
#include "ui/guide_pages.h"
#include "ui/guide_window.h"

#include <QTextBlock>

#include <gtest/gtest.h>

namespace comfortics::ui {
namespace {

using tests::find;

TEST(Guide, HasTheChapterOfEachWindowAndItsPictures)
{
    Application program(COMFORTICS_DATA_DIR);
    GuideWindow guide;
    const auto& pages = find<GuidePages>(guide, "User guide");
    guide.open({});
    const QStringList anchors = pages.anchors();
    EXPECT_TRUE(anchors.contains(QStringLiteral("keyboard")));
    program.shell().results.touch();
    program.shell().converter.touch();
    program.shell().radiation.touch();
    program.shell().rawData.touch();
    for (const FormWindow* const window :
         {static_cast<FormWindow*>(program.resultsWindow()),
          static_cast<FormWindow*>(program.converterWindow()),
          static_cast<FormWindow*>(program.radiationWindow()),
          static_cast<FormWindow*>(program.rawDataWindow()), static_cast<FormWindow*>(&program.mainWindow())})
        EXPECT_TRUE(anchors.contains(window->chapter())) << window->chapter().toStdString();

    int pictures = 0;
    for (QTextBlock block = pages.document()->begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part)
            if (const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
                format.isValid()) {
                ++pictures;
                const QUrl name = pages.source().resolved(QUrl(format.name()));
                EXPECT_FALSE(QImage(QLatin1Char(':') + name.path()).isNull()) << format.name().toStdString();
            }
    EXPECT_GT(pictures, 5);
}

TEST(Guide, LeadsToChaptersAndPagesAndBack)
{
    GuideWindow guide;
    auto& pages = find<GuidePages>(guide, "User guide");
    guide.open(QStringLiteral("keyboard"));
    EXPECT_EQ(pages.cursorForPosition({20, 20}).block().text(), QStringLiteral("Keyboard"));
    pages.setSource(QUrl(QStringLiteral("indices.md")));
    EXPECT_TRUE(pages.toPlainText().contains(QStringLiteral("Universal Thermal Climate Index")));
    pages.setSource(QUrl(QStringLiteral("missing.md")));
    EXPECT_TRUE(pages.source().path().endsWith(QStringLiteral("indices.md")));
    pages.backward();
    EXPECT_TRUE(pages.source().path().endsWith(QStringLiteral("user-guide.md")));

    EXPECT_TRUE(pages.search(QStringLiteral("polar night"), false)); // over the end and on from the start
    EXPECT_EQ(pages.textCursor().selectedText().toLower(), QStringLiteral("polar night"));
    EXPECT_FALSE(pages.search(QStringLiteral("no such words"), true));
    EXPECT_EQ(pages.textCursor().selectedText().toLower(), QStringLiteral("polar night"));
}

} // namespace
} // namespace comfortics::ui
