// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/clothing_dialog.h"

#include "standards/picking_tables.h"
#include "ui/text.h"
#include "ui/widgets.h"
#include "values/plain_text.h"
#include "workspace/person_and_place.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <optional>
#include <vector>

namespace comfortics::ui {

namespace {

constexpr QSize kSize(420, 480);

QString withClo(const standards::Garment& garment)
{
    return QStringLiteral("%1 (%2 clo)").arg(toQt(garment.name), toQt(values::plainText(garment.clo)));
}

} // namespace

ClothingDialog::ClothingDialog(QWidget* parent)
    : QDialog(parent), m_garments(new QListWidget), m_chair(new QComboBox), m_sum(new QLabel)
{
    setWindowTitle(QStringLiteral("Clothing of Garments"));
    QLineEdit* const search = searchLine(QStringLiteral("Search the garments"));
    nameWidget(*search, QStringLiteral("garment_search"), QStringLiteral("Search the garments"),
               QStringLiteral("Shows only the garments whose name holds the text"));
    for (const standards::Garment& garment : standards::kGarments) {
        auto* const item = new QListWidgetItem(withClo(garment), m_garments);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    nameWidget(*m_garments, QStringLiteral("garments"), QStringLiteral("Garments"),
               QStringLiteral("Ticked ones are worn; the space bar turns a tick"));
    m_chair->addItem(QStringLiteral("No chair, or one of net or wood"));
    for (const standards::Garment& chair : standards::kChairs)
        m_chair->addItem(withClo(chair));
    nameWidget(*m_chair, QStringLiteral("chair"), QStringLiteral("Chair"),
               QStringLiteral("What one sits on adds to the insulation"));
    nameWidget(*m_sum, QStringLiteral("clothing_sum"), QStringLiteral("Insulation of all together"), {});
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(search);
    layout->addWidget(m_garments, 1);
    layout->addWidget(m_chair);
    layout->addWidget(m_sum);
    layout->addWidget(buttons);
    connect(search, &QLineEdit::textChanged, this, [this](const QString& text) {
        for (int i = 0; i < m_garments->count(); ++i)
            m_garments->item(i)->setHidden(!m_garments->item(i)->text().contains(text, Qt::CaseInsensitive));
    });
    connect(m_garments, &QListWidget::itemChanged, this, &ClothingDialog::repeat);
    connect(m_chair, &QComboBox::currentIndexChanged, this, &ClothingDialog::repeat);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    repeat();
    resize(kSize);
}

std::string ClothingDialog::clothing() const
{
    std::vector<std::size_t> worn;
    for (int i = 0; i < m_garments->count(); ++i)
        if (m_garments->item(i)->checkState() == Qt::Checked)
            worn.push_back(static_cast<std::size_t>(i));
    std::optional<std::size_t> chair;
    if (m_chair->currentIndex() > 0)
        chair = static_cast<std::size_t>(m_chair->currentIndex() - 1);
    return workspace::clothingOf(worn, chair);
}

void ClothingDialog::repeat()
{
    const std::string clo = clothing();
    m_sum->setText(clo.empty() ? QStringLiteral("Nothing is ticked.")
                               : QStringLiteral("All together: %1 clo, by 0.835 times the sum plus 0.161 "
                                                "(ISO 9920), and the chair.")
                                     .arg(toQt(clo)));
    m_sum->setWordWrap(true);
}

} // namespace comfortics::ui
