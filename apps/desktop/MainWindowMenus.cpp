// The menus and the toolbar of the main window.

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "desktop/Icons.h"
#include "desktop/MainWindow.h"
#include "desktop/SlideView.h"

namespace vellora::desktop {

QAction* MainWindow::action(QMenu* menu, const QString& text, const QKeySequence& key,
                            void (MainWindow::*slot)()) {
    QAction* result = menu->addAction(text, this, slot);
    result->setShortcut(key);
    return result;
}

void MainWindow::createActions() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* create = action(file, tr("&New show"), QKeySequence::New, &MainWindow::newShow);
    QAction* open = action(file, tr("&Open..."), QKeySequence::Open, &MainWindow::openDialog);
    m_recent = file->addMenu(tr("Open &recent"));
    connect(m_recent, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    QAction* save = action(file, tr("&Save"), QKeySequence::Save, &MainWindow::saveAction);
    action(file, tr("Save &as..."), QKeySequence::SaveAs, &MainWindow::saveAsAction);
    file->addSeparator();
    QAction* exporting =
        action(file, tr("&Export pictures..."), Qt::CTRL | Qt::Key_E, &MainWindow::exportShow);
    file->addSeparator();
    QAction* quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* add = action(edit, tr("&Add photos..."), Qt::CTRL | Qt::Key_I, &MainWindow::addPhotos);
    QAction* editing =
        action(edit, tr("&Edit photo..."), Qt::Key_Return, &MainWindow::editSelected);
    QAction* removal =
        action(edit, tr("&Remove from show"), QKeySequence::Delete, &MainWindow::removeSelected);
    m_locate = action(edit, tr("&Locate missing photo..."), {}, &MainWindow::locateSelected);
    edit->addSeparator();
    QAction* all = edit->addAction(tr("&Select all"), m_view, &QAbstractItemView::selectAll);
    all->setShortcut(QKeySequence::SelectAll);
    edit->addSeparator();
    action(edit, tr("&Preferences..."), QKeySequence::Preferences, &MainWindow::editPreferences);

    QMenu* show = menuBar()->addMenu(tr("&Show"));
    QAction* playing = action(show, tr("&Play"), Qt::Key_F5, &MainWindow::play);
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    action(help, tr("&About Vellora"), {}, &MainWindow::about);

    m_needsSelection = {editing, removal};
    m_needsSlides = {exporting, playing, all};

    QToolBar* bar = addToolBar(tr("Tools"));
    bar->setMovable(false);
    bar->setIconSize({24, 24});
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    const auto put = [bar](QAction* item, Icon icon, const QString& caption) {
        item->setIcon(toolIcon(icon));
        item->setIconText(caption);
        item->setToolTip(QStringLiteral("%1 (%2)").arg(
            QString(item->text()).remove(QLatin1Char('&')).remove(QStringLiteral("...")),
            item->shortcut().toString(QKeySequence::NativeText)));
        bar->addAction(item);
    };
    put(create, Icon::New, tr("New"));
    put(open, Icon::Open, tr("Open"));
    put(save, Icon::Save, tr("Save"));
    bar->addSeparator();
    put(add, Icon::Add, tr("Add photos"));
    put(editing, Icon::Edit, tr("Edit"));
    put(removal, Icon::Remove, tr("Remove"));
    bar->addSeparator();
    put(playing, Icon::Play, tr("Play"));
    put(exporting, Icon::Export, tr("Export"));
}

void MainWindow::fillRecentMenu() {
    m_recent->clear();
    for (const QString& path : recentShows()) {
        QAction* item = m_recent->addAction(
            QString(QFileInfo(path).fileName()).replace(QLatin1Char('&'), QStringLiteral("&&")));
        item->setToolTip(QDir::toNativeSeparators(path));
        connect(item, &QAction::triggered, this, [this, path] { this->open(path); });
    }
    if (m_recent->isEmpty()) {
        m_recent->addAction(tr("No shows yet"))->setEnabled(false);
    }
}

void MainWindow::showContextMenu(QPoint point) {
    QMenu menu(this);
    menu.addActions(m_needsSelection);
    menu.addAction(m_locate);
    menu.exec(m_view->viewport()->mapToGlobal(point));
}

}  // namespace vellora::desktop
