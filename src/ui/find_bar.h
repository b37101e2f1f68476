// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/finding.h"

#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;

namespace comfortics::ui {

/// A line to find indices by, with filters, what is found, and steps from one to the next.
class FindBar : public QWidget {
    Q_OBJECT

public:
    /// The finding must outlive the bar.
    explicit FindBar(workspace::Finding& finding, QWidget* parent = nullptr);

    /// Puts the keyboard into the line.
    void begin();
    /// With words or filters a step, else as begin(): for the key that does both.
    void beginOrStep(bool forward);
    /// Deals with Escape for whoever has the keyboard: true where there was something to clear.
    bool clear();

    /// Said beside the filters while they are set.
    void setRemark(const QString& remark);
    /// How many are found in a list of the host's beside this one.
    void setFoundBesides(std::size_t count);
    /// For entries of the host, below those of the filters.
    QMenu& menu() { return *m_menu; }

    /// In the order in which the tab key goes through them.
    std::vector<QWidget*> tabOrder() const;

signals:
    /// Other words are looked for.
    void sought();
    void stepWanted(bool forward);
    /// The keyboard shall go to the rows.
    void rowsWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenu();
    void show();
    QString filterText() const;

    workspace::Finding& m_finding;
    QLineEdit* m_line;
    QLabel* m_summary;
    QToolButton* m_filter;
    QLabel* m_message;
    QMenu* m_menu = nullptr;
    QString m_remark;
    std::size_t m_besides = 0;
};

} // namespace comfortics::ui
