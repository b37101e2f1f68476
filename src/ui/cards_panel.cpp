// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cards_panel.h"

#include "ui/bindings.h"
#include "ui/cards_view.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace comfortics::ui {

CardsPanel::CardsPanel(workspace::Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_workspace(workspace), m_sets(new QComboBox), m_note(new QLabel),
      m_cards(new CardsView(workspace)), m_runner(workspace.limits(), [&workspace](auto situation) {
          workspace.follower.arrived(std::move(situation));
      })
{
    nameWidget(*m_sets, QStringLiteral("cards_set"), QStringLiteral("Set of indices"),
               QStringLiteral("Which indices the cards show"));
    m_sets->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* const menu = new QToolButton;
    menu->setText(QStringLiteral("Sets"));
    menu->setPopupMode(QToolButton::InstantPopup);
    menu->setFocusPolicy(Qt::StrongFocus);
    nameWidget(*menu, QStringLiteral("cards_menu"), QStringLiteral("Sets"),
               QStringLiteral("Makes, names and deletes own sets"));
    buildMenu(*menu);
    m_note->setObjectName(QStringLiteral("cards_note"));
    m_note->setWordWrap(true);
    nameWidget(*m_cards, QStringLiteral("cards"), QStringLiteral("My indices"), {});

    auto* const top = new QHBoxLayout;
    top->addWidget(m_sets, 1);
    top->addWidget(menu);
    auto* const content = new QVBoxLayout;
    content->addLayout(top);
    content->addWidget(m_note);
    content->addWidget(m_cards, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new Card(QStringLiteral("My indices"), content));
    m_tabOrder = {m_sets, menu, m_cards};

    auto* const patience = new QTimer(this);
    patience->setTimerType(Qt::PreciseTimer);
    bind(*patience, workspace.follower.patience);
    follow(*this, workspace.sets.changed, [this] { repeatSets(); });
    follow(*this, workspace.follower.changed, [this] { repeatNote(); });
    connect(m_sets, &QComboBox::activated, this, [this](int item) {
        m_workspace.sets.show(static_cast<std::size_t>(m_sets->itemData(item).toInt()));
    });
    workspace.follower.onAsk([this](const classic::Inputs& inputs) { m_runner.ask(inputs); });
}

CardsPanel::~CardsPanel()
{
    m_workspace.follower.onAsk({});
}

void CardsPanel::buildMenu(QToolButton& button)
{
    auto* const menu = new QMenu(&button);
    workspace::IndexSets& sets = m_workspace.sets;
    menu->addAction(QStringLiteral("&New set..."), this, [this, &sets] {
        askName(QStringLiteral("New set"), {}, std::nullopt,
                [&sets](const std::string& name) { sets.create(name); });
    });
    menu->addAction(QStringLiteral("&Copy this set..."), this, [this, &sets] {
        askName(QStringLiteral("Copy of \"%1\"").arg(toQt(sets.shown().name)),
                QStringLiteral("My ") + toQt(sets.shown().name).toLower(), std::nullopt,
                [&sets](const std::string& name) { sets.create(name, sets.shown().ids); });
    });
    menu->addSeparator();
    QAction* const rename = menu->addAction(QStringLiteral("&Rename..."), this, [this, &sets] {
        askName(QStringLiteral("Rename \"%1\"").arg(toQt(sets.shown().name)), toQt(sets.shown().name),
                sets.shownPlace(),
                [&sets](const std::string& name) { sets.rename(sets.shownPlace(), name); });
    });
    QAction* const remove = menu->addAction(QStringLiteral("&Delete"), this, [this] { removeShown(); });
    follow(*menu, sets.changed, [&sets, rename, remove] { // ready sets stay as they are
        rename->setEnabled(sets.shown().own);
        remove->setEnabled(sets.shown().own);
    });
    button.setMenu(menu);
}

void CardsPanel::askName(const QString& title, const QString& proposed, std::optional<std::size_t> of,
                         const std::function<void(const std::string&)>& take)
{
    QString name = proposed;
    QString label = QStringLiteral("Name of the set:");
    for (;;) {
        bool accepted = false;
        name = QInputDialog::getText(this, title, label, QLineEdit::Normal, name, &accepted);
        if (!accepted)
            return;
        const std::string fault = m_workspace.sets.whyNot(fromQt(name), of);
        if (fault.empty())
            break;
        label = toQt(fault) + QStringLiteral("\nName of the set:");
    }
    take(fromQt(name));
}

void CardsPanel::removeShown()
{
    const workspace::IndexSet& set = m_workspace.sets.shown();
    if (QMessageBox::question(this, QStringLiteral("Delete a set"),
                              QStringLiteral("Do you want to delete the set \"%1\"?").arg(toQt(set.name)),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes)
        m_workspace.sets.remove(m_workspace.sets.shownPlace());
}

void CardsPanel::repeatSets()
{
    const QSignalBlocker quiet(m_sets);
    m_sets->clear();
    bool own = false;
    const auto& all = m_workspace.sets.all();
    for (std::size_t place = 0; place < all.size(); ++place) {
        if (all[place].own && !own)
            m_sets->insertSeparator(m_sets->count());
        own = all[place].own;
        m_sets->addItem(toQt(all[place].name), static_cast<int>(place));
        m_sets->setItemData(m_sets->count() - 1, toQt(all[place].purpose), Qt::ToolTipRole);
        if (place == m_workspace.sets.shownPlace())
            m_sets->setCurrentIndex(m_sets->count() - 1);
    }
}

// Why figures are missing, or of what they are; hidden where they are those of the readings.
void CardsPanel::repeatNote()
{
    const workspace::Follower& follower = m_workspace.follower;
    // The cards themselves say that they are calculated; a line that comes and goes would move them.
    const QString note = follower.standing() == workspace::Follower::Standing::Calculating
                             ? m_note->text()
                             : toQt(follower.note());
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());
}

} // namespace comfortics::ui
