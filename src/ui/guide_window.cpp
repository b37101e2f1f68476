// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/guide_window.h"

#include "ui/guide_pages.h"
#include "ui/widgets.h"

#include <QAction>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

// Outside of all namespaces, as the macro wants it. The linker would leave the pages out otherwise.
static void loadGuide()
{
    Q_INIT_RESOURCE(guide);
}

namespace comfortics::ui {

namespace {

constexpr QSize kSize(760, 700);

} // namespace

GuideWindow::GuideWindow(QWidget* parent) : QMainWindow(parent), m_pages(new GuidePages)
{
    loadGuide();
    setWindowTitle(QStringLiteral("Comfortics — User guide"));
    setContextMenuPolicy(Qt::PreventContextMenu);
    m_pages->setAccessibleName(QStringLiteral("User guide"));
    setCentralWidget(m_pages);
    statusBar();
    buildBar();
    connect(m_pages, &GuidePages::missed, this, [this](const QString& name) {
        statusBar()->showMessage(
            QStringLiteral("%1 is no part of this help; it lies in the documents of the program.").arg(name));
    });
    connect(m_pages, &GuidePages::sourceChanged, statusBar(), &QStatusBar::clearMessage);
    resize(kSize.boundedTo(screen()->availableGeometry().size()));
}

void GuideWindow::buildBar()
{
    auto* const bar = addToolBar(QStringLiteral("Guide"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [this, bar](QStyle::StandardPixmap icon, const QString& text,
                                 const QList<QKeySequence>& keys) {
        QAction* const action = bar->addAction(style()->standardIcon(icon), text);
        action->setShortcuts(keys);
        action->setToolTip(text + QStringLiteral(" (") + keys.first().toString(QKeySequence::NativeText) +
                           QStringLiteral(")"));
        return action;
    };
    QAction* const back =
        add(QStyle::SP_ArrowBack, QStringLiteral("Back"), {QKeySequence(Qt::ALT | Qt::Key_Left)});
    QAction* const forward =
        add(QStyle::SP_ArrowForward, QStringLiteral("Forward"), {QKeySequence(Qt::ALT | Qt::Key_Right)});
    QAction* const contents = add(QStyle::SP_FileDialogListView, QStringLiteral("Contents"),
                                  {QKeySequence(Qt::ALT | Qt::Key_Home)});
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_pages, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_pages, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(back, &QAction::triggered, m_pages, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_pages, &QTextBrowser::forward);
    connect(contents, &QAction::triggered, this, [this] { m_pages->open({}); });

    m_search = searchLine(QStringLiteral("Search the page"));
    m_search->setToolTip(QStringLiteral("Enter goes to the next place (Ctrl+F; F3, Shift+F3)"));
    bar->addWidget(m_search);
    connect(m_search, &QLineEdit::returnPressed, this, [this] { search(false); });

    const auto key = [this](const QKeySequence& keys, const std::function<void()>& act) {
        auto* const action = new QAction(this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, act);
        addAction(action);
    };
    key(QKeySequence::Find, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    key(QKeySequence(Qt::Key_F3), [this] { search(false); });
    key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { search(true); });
    key(QKeySequence::Close, [this] { close(); });
    key(QKeySequence(Qt::Key_Escape), [this] { close(); });
}

void GuideWindow::open(const QString& chapter)
{
    m_pages->open(chapter);
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
    m_pages->setFocus();
}

void GuideWindow::search(bool backwards)
{
    if (m_search->text().isEmpty())
        return;
    if (m_pages->search(m_search->text(), backwards))
        statusBar()->clearMessage();
    else
        statusBar()->showMessage(QStringLiteral("The page does not have \"%1\".").arg(m_search->text()));
}

} // namespace comfortics::ui
