// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/index_panel.h"

#include "ui/bindings.h"
#include "ui/index_list.h"
#include "ui/mark_style.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace comfortics::ui {

IndexPanel::IndexPanel(classic::Frm_Main& form, QWidget* parent) : QWidget(parent)
{
    auto* const search = m_search = searchLine(QStringLiteral("Search the list"));
    nameWidget(*search, QStringLiteral("txt_Search_List"), QStringLiteral("Search the index list"),
               QStringLiteral("Moves the list to the first index whose name contains the text (Ctrl+F)"));
    new TextBoxBinding(*search, form.txt_Search_List);

    auto* const list = new IndexList(form.List_Indices);
    nameWidget(*list, QStringLiteral("List_Indices"), QStringLiteral("Indices"),
               QStringLiteral("Ticked indices are calculated"));

    auto* const all = new QCheckBox;
    MarkStyle::wear(*all);
    bind(*all, form.Check_All_Indices);
    nameWidget(*all, QStringLiteral("Check_All_Indices"), QStringLiteral("All indices"),
               QStringLiteral("Ticks all indices of the list or none"));

    auto* const layout = new QVBoxLayout(this);
    auto* const top = new QHBoxLayout;
    top->addWidget(search, 1);
    top->addWidget(all);
    layout->addLayout(top);
    layout->addWidget(list, 1);
    m_tabOrder = {search, list, all};
}

void IndexPanel::search()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

} // namespace comfortics::ui
