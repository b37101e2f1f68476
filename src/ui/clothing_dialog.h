// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <string>

class QComboBox;
class QLabel;
class QListWidget;

namespace comfortics::ui {

/// Garments to tick, whose insulation is that of all of them worn together.
class ClothingDialog : public QDialog {
    Q_OBJECT

public:
    explicit ClothingDialog(QWidget* parent = nullptr);

    /// The insulation as text of its field [clo]; empty where nothing is ticked.
    std::string clothing() const;

private:
    void repeat();

    QListWidget* m_garments;
    QComboBox* m_chair;
    QLabel* m_sum;
};

} // namespace comfortics::ui
