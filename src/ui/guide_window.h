// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

class QLineEdit;

namespace comfortics::ui {

class GuidePages;

/// The user guide, in a window that can stay open beside the others.
class GuideWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget* parent = nullptr);

    /// Opens the guide at a chapter, by its anchor, and brings the window to the front.
    void open(const QString& chapter);

private:
    void buildBar();
    void search(bool backwards);

    GuidePages* m_pages = nullptr;
    QLineEdit* m_search = nullptr;
};

} // namespace comfortics::ui
