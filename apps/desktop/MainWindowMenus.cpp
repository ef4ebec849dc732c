// The menus and the toolbar of the main window.

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "desktop/Icons.h"
#include "desktop/MainWindow.h"
#include "desktop/MessageBox.h"
#include "desktop/SlideView.h"

namespace vellora::desktop {
namespace {

void put(QToolBar& bar, QAction* action, Icon icon, const QString& caption) {
    action->setIcon(toolIcon(icon));
    action->setIconText(caption);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(
        QString(action->text()).remove(QLatin1Char('&')).remove(QStringLiteral("...")),
        action->shortcut().toString(QKeySequence::NativeText)));
    bar.addAction(action);
}

}  // namespace

QAction* MainWindow::action(QMenu* menu, const QString& text, const QKeySequence& key,
                            void (MainWindow::*slot)()) {
    QAction* result = menu->addAction(text, this, slot);
    result->setShortcut(key);
    return result;
}

void MainWindow::createActions() {
    // The old menu bar is deleted by the event loop; until then its keys would be ambiguous.
    for (QAction* old : menuBar()->findChildren<QAction*>()) {
        old->setShortcuts(QList<QKeySequence>());
    }
    setMenuBar(new QMenuBar);
    createFileMenu();
    createEditMenu();
    QMenu* show = menuBar()->addMenu(tr("&Show"));
    m_actions.play = action(show, tr("&Play"), Qt::Key_F5, &MainWindow::play);
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    action(help, tr("&About Vellora"), {}, &MainWindow::about);
    createToolBar();
    m_view->setAccessibleName(tr("Photos of the show"));
}

void MainWindow::createFileMenu() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    m_actions.create = action(file, tr("&New show"), QKeySequence::New, &MainWindow::newShow);
    m_actions.open = action(file, tr("&Open..."), QKeySequence::Open, &MainWindow::openDialog);
    m_recent = file->addMenu(tr("Open &recent"));
    m_recent->setToolTipsVisible(true);
    connect(m_recent, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    m_actions.save = action(file, tr("&Save"), QKeySequence::Save, &MainWindow::saveAction);
    action(file, tr("Save &as..."), Qt::CTRL | Qt::SHIFT | Qt::Key_S, &MainWindow::saveAsAction);
    file->addSeparator();
    m_actions.exporting =
        action(file, tr("&Export pictures..."), Qt::CTRL | Qt::Key_E, &MainWindow::exportShow);
    file->addSeparator();
    file->addAction(tr("&Quit"), Qt::CTRL | Qt::Key_Q, this, &QWidget::close);
}

void MainWindow::createEditMenu() {
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    m_actions.undo = action(edit, tr("&Undo"), QKeySequence::Undo, &MainWindow::undo);
    m_actions.redo = action(edit, tr("Re&do"), {}, &MainWindow::redo);
    // The systems disagree which of the two it is.
    m_actions.redo->setShortcuts(
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, QKeySequence(Qt::CTRL | Qt::Key_Y)});
    edit->addSeparator();
    m_actions.add =
        action(edit, tr("&Add photos..."), Qt::CTRL | Qt::Key_I, &MainWindow::addPhotos);
    m_actions.edit = action(edit, tr("&Edit photo..."), {}, &MainWindow::editSelected);
    m_actions.edit->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
    m_actions.remove =
        action(edit, tr("&Remove from show"), QKeySequence::Delete, &MainWindow::removeSelected);
    m_actions.locate =
        action(edit, tr("&Locate missing photo..."), {}, &MainWindow::locateSelected);
    m_actions.back = action(edit, tr("Move &back"), Qt::ALT | Qt::Key_Left, &MainWindow::moveBack);
    m_actions.forward =
        action(edit, tr("Move &forward"), Qt::ALT | Qt::Key_Right, &MainWindow::moveForward);
    edit->addSeparator();
    m_actions.selectAll = edit->addAction(tr("&Select all"), QKeySequence::SelectAll, m_view,
                                          &QAbstractItemView::selectAll);
    edit->addSeparator();
    action(edit, tr("&Preferences..."), Qt::CTRL | Qt::Key_Comma, &MainWindow::editPreferences);
}

void MainWindow::createToolBar() {
    delete m_bar;
    m_bar = addToolBar(tr("Tools"));
    m_bar->setMovable(false);
    m_bar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_bar->setIconSize({24, 24});
    m_bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    put(*m_bar, m_actions.create, Icon::New, tr("New"));
    put(*m_bar, m_actions.open, Icon::Open, tr("Open"));
    put(*m_bar, m_actions.save, Icon::Save, tr("Save"));
    m_bar->addSeparator();
    put(*m_bar, m_actions.add, Icon::Add, tr("Add photos"));
    put(*m_bar, m_actions.edit, Icon::Edit, tr("Edit"));
    put(*m_bar, m_actions.remove, Icon::Remove, tr("Remove"));
    m_bar->addSeparator();
    put(*m_bar, m_actions.play, Icon::Play, tr("Play"));
    put(*m_bar, m_actions.exporting, Icon::Export, tr("Export"));
}

void MainWindow::fillRecentMenu() {
    m_recent->clear();
    for (const QString& path : recentShows()) {
        QAction* item = m_recent->addAction(
            QString(QFileInfo(path).fileName()).replace(QLatin1Char('&'), QStringLiteral("&&")));
        item->setToolTip(shownAsItIs(QDir::toNativeSeparators(path)));
        connect(item, &QAction::triggered, this, [this, path] { this->open(path); });
    }
    if (m_recent->isEmpty()) {
        m_recent->addAction(tr("No shows yet"))->setEnabled(false);
    }
}

void MainWindow::showContextMenu(QPoint point) {
    QMenu menu(this);
    menu.addActions(
        {m_actions.edit, m_actions.remove, m_actions.locate, m_actions.back, m_actions.forward});
    menu.exec(m_view->viewport()->mapToGlobal(point));
}

}  // namespace vellora::desktop
