#include "desktop/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QScrollBar>
#include <QStatusBar>
#include <QWindow>

#include <vellora/host/HostMessage.h>

#include "desktop/Autosave.h"
#include "desktop/DroppedFiles.h"
#include "desktop/ExportDialog.h"
#include "desktop/ExportProgress.h"
#include "desktop/Language.h"
#include "desktop/MessageBox.h"
#include "desktop/Player.h"
#include "desktop/PreferencesDialog.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideDelegate.h"
#include "desktop/SlideView.h"
#include "desktop/Thumbnails.h"

namespace vellora::desktop {
namespace {

constexpr unsigned kSlideChanged = 1;
constexpr int kMessageMs = 5000;

/// "Undo: Remove photos"
QString withSubject(const QString& command, const QString& subject) {
    return subject.isEmpty() ? command : QStringLiteral("%1: %2").arg(command, subject);
}

}  // namespace

MainWindow::MainWindow()
    : m_preferences(Preferences::load()),
      m_document(new ShowDocument(this)),
      m_autosave(new Autosave(*m_document, this)),
      m_thumbnails(new Thumbnails(this)),
      m_view(new SlideView),
      m_count(new QLabel) {
    useLanguage(m_preferences.language);
    // It is spoken from the start.
    QCoreApplication::removePostedEvents(this, QEvent::LanguageChange);
    m_view->setModel(&m_document->slides());
    m_view->setItemDelegate(new SlideDelegate(*m_thumbnails, m_view));
    setCentralWidget(m_view);
    statusBar()->addPermanentWidget(m_count);
    createActions();
    resize(1100, 720);

    SlideModel& slides = m_document->slides();
    connect(m_autosave, &Autosave::due, this, &MainWindow::autosave);
    connect(m_document, &ShowDocument::stateChanged, this, &MainWindow::updateState);
    connect(&slides, &QAbstractItemModel::rowsInserted, this, &MainWindow::updateState);
    // Putting the module's list into another order binds the records anew.
    const auto pause = [this] { m_pause.emplace(m_thumbnails->queue()); };
    const auto resume = [this] { m_pause.reset(); };
    connect(&slides, &QAbstractItemModel::rowsAboutToBeInserted, this, pause);
    connect(&slides, &QAbstractItemModel::rowsInserted, this, resume);
    connect(&slides, &QAbstractItemModel::layoutAboutToBeChanged, this, pause);
    connect(&slides, &QAbstractItemModel::layoutChanged, this, resume);
    connect(&slides, &QAbstractItemModel::rowsRemoved, this, &MainWindow::updateState);
    connect(&slides, &QAbstractItemModel::modelReset, this, [this] {
        m_thumbnails->clear();
        updateState();
    });
    connect(&slides, &SlideModel::filesDropped, this, [this](const QList<QUrl>& urls, int row) {
        const DroppedFiles dropped(urls);
        addFiles(dropped.paths, row, dropped.refused);
    });
    connect(&slides.history(), &QUndoStack::indexChanged, this, &MainWindow::updateState);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::updateState);
    connect(m_view, &QListView::doubleClicked, this, &MainWindow::activateSlide);
    connect(m_view, &QWidget::customContextMenuRequested, this, &MainWindow::showContextMenu);
    connect(m_thumbnails, &Thumbnails::updated, this,
            [&slides](quint64 id) { slides.refresh(slides.rowOf(id)); });
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &MainWindow::forgetUnseen);
    applyPreferences();
    updateState();
    m_view->setFocus();
}

MainWindow::~MainWindow() {
    // Their threads draw the album and the slides of the document, which goes after them.
    stopPlaying();
    // The history tells of its end, when there is no window any more to hear it.
    m_document->slides().history().disconnect(this);
    m_view->setItemDelegate(nullptr);
    delete m_thumbnails;
}

void MainWindow::stopPlaying() {
    qDeleteAll(findChildren<Player*>());
}

void MainWindow::applyPreferences() {
    useLanguage(m_preferences.language);
    m_document->slides().document().SetTextEffectBaseFolder(m_preferences.effectiveAssetsFolder());
    // Texts may look different now.
    m_thumbnails->clear();
    m_view->viewport()->update();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    sizeThumbnails();
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::sizeThumbnails,
            Qt::UniqueConnection);
}

void MainWindow::sizeThumbnails() {
    m_thumbnails->setBox((QSizeF(SlideDelegate::kPicture) * devicePixelRatioF()).toSize());
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        createActions();
        updateState();
    }
}

void MainWindow::updateState() {
    SlideModel& slides = m_document->slides();
    const QList<int> selected = m_view->selectedRows();
    const QUndoStack& history = slides.history();
    m_actions.undo->setEnabled(history.canUndo());
    m_actions.undo->setText(withSubject(tr("&Undo"), history.undoText()));
    m_actions.redo->setEnabled(history.canRedo());
    m_actions.redo->setText(withSubject(tr("Re&do"), history.redoText()));
    m_actions.back->setEnabled(!selected.isEmpty() && selected.first() > 0);
    m_actions.forward->setEnabled(!selected.isEmpty() && selected.last() + 1 < slides.count());
    for (QAction* action : {m_actions.edit, m_actions.remove}) {
        action->setEnabled(!selected.isEmpty());
    }
    for (QAction* action : {m_actions.exporting, m_actions.play, m_actions.selectAll}) {
        action->setEnabled(slides.count() > 0);
    }
    m_actions.locate->setEnabled(selected.size() == 1 &&
                                 slides.slide(selected.first())->isMissing());
    // Of several places for the mark of changes the doubled ones stand for themselves.
    const QString name =
        m_document->displayName().replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    setWindowTitle(QStringLiteral("%1[*] - Vellora").arg(name));
    setWindowModified(m_document->isDirty());
    m_count->setText(selected.isEmpty()
                         ? tr("%Ln photo(s)", nullptr, slides.count())
                         : tr("%L1 of %L2 selected").arg(selected.size()).arg(slides.count()));
}

void MainWindow::forgetUnseen() {
    QSet<quint64> seen;
    const SlideView::Rows rows = m_view->visibleRows();
    for (int row = rows.begin; row < rows.end; ++row) {
        seen.insert(m_document->slides().slide(row)->id());
    }
    m_thumbnails->keepOnly(seen);
}

void MainWindow::report(const QString& title, const QString& text, const QStringList& details) {
    MessageBox box(MessageBox::Warning, title, text, MessageBox::Ok, this);
    if (!details.isEmpty()) {
        box.setInformativeText(QStringList(details.mid(0, 3)).join(QLatin1Char('\n')));
        if (details.size() > 3) {
            box.setDetailedText(details.join(QLatin1Char('\n')));
        }
    }
    box.exec();
}

bool MainWindow::mayLeaveShow() {
    if (!m_document->isDirty()) {
        m_autosave->discard();
        return true;
    }
    const auto answer = MessageBox::ask(
        this, tr("Unsaved changes"),
        tr("The show \"%1\" has changes that are not saved.").arg(m_document->displayName()),
        MessageBox::Save | MessageBox::Discard | MessageBox::Cancel, MessageBox::Save);
    if (answer == MessageBox::Save) {
        return save();
    }
    if (answer == MessageBox::Discard) {
        m_autosave->discard();
        return true;
    }
    return false;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!mayLeaveShow()) {
        event->ignore();
        return;
    }
    m_autosave->discard();
    QMainWindow::closeEvent(event);
}

bool MainWindow::autosave() {
    // Drawing measures texts, so a show that is drawn by another thread is not written.
    if (findChild<Player*>() != nullptr) {
        return false;
    }
    const RenderQueue::Pause pause(m_thumbnails->queue());
    return m_autosave->update();
}

void MainWindow::newShow() {
    if (mayLeaveShow()) {
        stopPlaying();
        const RenderQueue::Pause pause(m_thumbnails->queue());
        m_document->startNew();
    }
}

void MainWindow::openPaths(const QStringList& paths) {
    if (paths.size() == 1 && hostkit::isShowFile(paths.first())) {
        open(paths.first());
    } else {
        addFiles(paths, m_document->slides().count());
    }
}

void MainWindow::addPhotos() {
    addFiles(QFileDialog::getOpenFileNames(
                 this, tr("Add photos"), {},
                 tr("Photos (*.jpg *.jpeg *.png *.tif *.tiff *.bmp *.webp *.gif);;All files (*)")),
             m_document->slides().count());
}

void MainWindow::addFiles(const QStringList& paths, int row, QStringList refused) {
    if (paths.isEmpty() && refused.isEmpty()) {
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    SlideModel& slides = m_document->slides();
    const int before = slides.count();
    refused += m_document->addFiles(paths, row, m_preferences.background);
    refused += namelessFilesIn(paths);
    QApplication::restoreOverrideCursor();
    if (const int added = slides.count() - before; added > 0) {
        const QModelIndex first = slides.index(std::clamp(row, 0, before));
        m_view->setCurrentIndex(first);
        m_view->selectionModel()->select({first, slides.index(first.row() + added - 1)},
                                         QItemSelectionModel::ClearAndSelect);
    }
    if (!refused.isEmpty()) {
        report(tr("Add photos"),
               tr("%Ln file(s) are no readable photos.", nullptr, static_cast<int>(refused.size())),
               refused);
    }
}

void MainWindow::removeSelected() {
    const QList<int> rows = m_view->selectedRows();
    m_document->slides().remove(rows);
    // So that Delete can be pressed again.
    if (const int left = m_document->slides().count(); !rows.isEmpty() && left > 0) {
        m_view->setCurrentIndex(m_document->slides().index(std::min(rows.first(), left - 1)));
    }
}

void MainWindow::undo() {
    m_document->slides().history().undo();
}

void MainWindow::redo() {
    m_document->slides().history().redo();
}

void MainWindow::moveBack() {
    if (const QList<int> rows = m_view->selectedRows(); !rows.isEmpty()) {
        m_document->slides().moveTo(rows, rows.first() - 1);
    }
}

void MainWindow::moveForward() {
    if (const QList<int> rows = m_view->selectedRows(); !rows.isEmpty()) {
        m_document->slides().moveTo(rows, rows.last() + 2);
    }
}

void MainWindow::locateSelected() {
    const QList<int> rows = m_view->selectedRows();
    if (rows.size() != 1) {
        return;
    }
    const SlidePtr slide = m_document->slides().slide(rows.first());
    const QString before = slide->path();
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Locate %1").arg(QFileInfo(before).fileName()), QFileInfo(before).path());
    if (path.isEmpty()) {
        return;
    }
    const RenderQueue::Pause pause(m_thumbnails->queue());
    const QList<int> found = m_document->slides().relocate(rows.first(), path);
    for (const int row : found) {
        m_thumbnails->invalidate(m_document->slides().slide(row)->id());
    }
    statusBar()->showMessage(
        tr("%Ln photo(s) found again", nullptr, static_cast<int>(found.size())), kMessageMs);
    updateState();
}

void MainWindow::activateSlide(const QModelIndex& index) {
    const SlidePtr slide = m_document->slides().slide(index.row());
    if (slide != nullptr && slide->isMissing()) {
        locateSelected();
    } else {
        editSelected();
    }
}

void MainWindow::editSelected() {
    const QList<int> rows = m_view->selectedRows();
    if (rows.isEmpty()) {
        return;
    }
    // The dialog owns the photos while it is open; what changed is rendered afterwards.
    stopPlaying();
    const RenderQueue::Pause pause(m_thumbnails->queue());
    ReleaseImgBuf(m_document->slides().slide(rows.first())->node());
    const QByteArray before = m_document->isDirty() ? QByteArray() : m_document->contents();
    // From now on, so that a crash in the dialog finds an automatic copy.
    m_document->markDirty();
    for (const SlidePtr& slide : m_document->slides().slides()) {
        slide->record().changed = 0;
    }
    m_document->slides().document().ShowProcessDialog(rows.first(), this, kSlideChanged);
    // Who only looked need not be asked about changes.
    if (!before.isEmpty() && m_document->contents() == before) {
        m_document->markClean();
    }
    // Album sprites change photos that the dialog never showed.
    for (const SlidePtr& slide : m_document->slides().slides()) {
        if (slide->record().changed != 0) {
            m_thumbnails->invalidate(slide->id());
        }
    }
}

void MainWindow::customEvent(QEvent* event) {
    if (event->type() != HostMessageEvent::messageType()) {
        return;
    }
    const auto& message = *static_cast<HostMessageEvent*>(event);
    const SlidePtr slide = m_document->slides().slide(message.firstParameter());
    if (message.message() == kSlideChanged && slide != nullptr) {
        m_thumbnails->invalidate(slide->id());
    }
}

void MainWindow::exportShow() {
    ExportDialog dialog(m_document->slides().count(), this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    stopPlaying();
    ExportOptions options = dialog.options();
    options.assetsFolder = m_preferences.effectiveAssetsFolder();
    ExportJob job(options);
    QString error;
    if (paused([&] { return job.prepare(*m_document, &error); })) {
        ExportProgress(job, this).exec();
    } else {
        report(tr("Export"), tr("The show could not be prepared for the export."), {error});
    }
}

void MainWindow::play() {
    const QList<int> rows = m_view->selectedRows();
    auto* player =
        new Player(m_document->slides().slides(), rows.isEmpty() ? 0 : rows.first(), this);
    player->showFullScreen();
}

void MainWindow::editPreferences() {
    PreferencesDialog dialog(m_preferences, this);
    if (dialog.exec() == QDialog::Accepted) {
        m_preferences = dialog.preferences();
        m_preferences.store();
        const RenderQueue::Pause pause(m_thumbnails->queue());
        applyPreferences();
    }
}

void MainWindow::about() {
    QMessageBox::about(this, tr("About Vellora"),
                       tr("<h3>Vellora %1</h3><p>Slideshows of photos with words. Photos are "
                          "never changed: edits are kept beside them.</p>")
                           .arg(QStringLiteral(VELLORA_VERSION)));
}

}  // namespace vellora::desktop
