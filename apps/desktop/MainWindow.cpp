#include "desktop/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QStatusBar>

#include <vellora/host/HostMessage.h>

#include "desktop/Autosave.h"
#include "desktop/ExportDialog.h"
#include "desktop/ExportProgress.h"
#include "desktop/Language.h"
#include "desktop/Player.h"
#include "desktop/PreferencesDialog.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideDelegate.h"
#include "desktop/SlideView.h"
#include "desktop/Thumbnails.h"

namespace vellora::desktop {
namespace {

constexpr unsigned kSlideChanged = 1;

QStringList localPaths(const QList<QUrl>& urls) {
    QStringList paths;
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) {
            paths.append(url.toLocalFile());
        }
    }
    return paths;
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
    connect(&slides, &SlideModel::filesDropped, this,
            [this](const QList<QUrl>& urls, int row) { addFiles(localPaths(urls), row); });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::updateState);
    connect(m_view, &QListView::doubleClicked, this, &MainWindow::editSelected);
    connect(m_view, &QWidget::customContextMenuRequested, this, &MainWindow::showContextMenu);
    connect(m_thumbnails, &Thumbnails::updated, this,
            [&slides](quint64 id) { slides.refresh(slides.rowOf(id)); });
    applyPreferences();
    updateState();
}

MainWindow::~MainWindow() {
    // Their threads draw the album and the slides of the document, which goes after them.
    stopPlaying();
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
    for (QAction* action : {m_actions.edit, m_actions.remove}) {
        action->setEnabled(!selected.isEmpty());
    }
    for (QAction* action : {m_actions.exporting, m_actions.play, m_actions.selectAll}) {
        action->setEnabled(slides.count() > 0);
    }
    m_actions.locate->setEnabled(selected.size() == 1 &&
                                 slides.slide(selected.first())->isMissing());
    setWindowTitle(QStringLiteral("%1[*] - Vellora").arg(m_document->displayName()));
    setWindowModified(m_document->isDirty());
    m_count->setText(selected.isEmpty()
                         ? tr("%Ln photo(s)", nullptr, slides.count())
                         : tr("%L1 of %L2 selected").arg(selected.size()).arg(slides.count()));
}

void MainWindow::report(const QString& title, const QString& text, const QStringList& details) {
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
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
        return true;
    }
    const auto answer = QMessageBox::question(
        this, tr("Unsaved changes"),
        tr("The show \"%1\" has changes that are not saved.").arg(m_document->displayName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save) {
        return save();
    }
    if (answer == QMessageBox::Discard) {
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

void MainWindow::autosave() {
    // Drawing measures texts, so a show that is drawn by another thread is not written.
    if (!m_isExporting && findChild<Player*>() == nullptr) {
        const RenderQueue::Pause pause(m_thumbnails->queue());
        m_autosave->update();
    }
}

void MainWindow::newShow() {
    if (mayLeaveShow()) {
        stopPlaying();
        const RenderQueue::Pause pause(m_thumbnails->queue());
        m_document->startNew();
    }
}

void MainWindow::openDialog() {
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open a show"), QFileInfo(m_document->path()).path(), tr("Slideshows (*.vshow)"));
    if (!path.isEmpty()) {
        open(path);
    }
}

void MainWindow::open(const QString& path) {
    if (!mayLeaveShow()) {
        return;
    }
    stopPlaying();
    QStringList problems;
    switch (paused([&] { return m_document->open(path, &problems); })) {
        case ShowDocument::OpenResult::Failed:
            report(tr("Open a show"),
                   tr("\"%1\" cannot be opened.").arg(QFileInfo(path).fileName()), problems);
            return;
        case ShowDocument::OpenResult::LockedByOther:
            if (QMessageBox::question(this, tr("Open a show"),
                                      tr("Another window works on this show. Open a copy?")) ==
                    QMessageBox::Yes &&
                !paused([&] { return m_document->import(path, {}, &problems); })) {
                report(tr("Open a show"),
                       tr("\"%1\" cannot be opened.").arg(QFileInfo(path).fileName()), problems);
            }
            return;
        case ShowDocument::OpenResult::Opened:
            break;
    }
    rememberShow(m_document->path());
    if (!problems.isEmpty()) {
        report(tr("Open a show"), tr("Some of the show could not be read."), problems);
    }
    const QString copy = Autosave::newerCopyOf(m_document->path());
    if (!copy.isEmpty()) {
        recover(copy, m_document->path());
    }
}

void MainWindow::recover(const QString& copy, const QString& show) {
    const QString name = show.isEmpty() ? tr("A show that was never saved")
                                        : tr("The show \"%1\"").arg(QFileInfo(show).fileName());
    const QString when = QLocale().toString(QFileInfo(copy).lastModified(), QLocale::ShortFormat);
    QMessageBox box(QMessageBox::Question, tr("Recover changes"),
                    tr("%1 has changes of %2 that were not saved.").arg(name, when), {}, this);
    const QPushButton* take = box.addButton(tr("Recover"), QMessageBox::AcceptRole);
    const QPushButton* drop = box.addButton(tr("Delete changes"), QMessageBox::DestructiveRole);
    box.addButton(tr("Later"), QMessageBox::RejectRole);
    box.exec();
    QStringList problems;
    if (box.clickedButton() == reinterpret_cast<const QAbstractButton*>(take)) {
        stopPlaying();
        if (paused([&] { return m_document->import(copy, show, &problems); })) {
            Autosave::remove(copy);
            autosave();
        } else {
            report(tr("Recover changes"), tr("The changes cannot be read."), problems);
        }
    } else if (box.clickedButton() == reinterpret_cast<const QAbstractButton*>(drop)) {
        Autosave::remove(copy);
    }
}

void MainWindow::offerOrphans() {
    for (const QString& copy : Autosave::orphans()) {
        if (m_document->slides().count() == 0) {
            recover(copy, {});
        }
    }
}

bool MainWindow::saveTo(const QString& path) {
    QString error;
    {
        const RenderQueue::Pause pause(m_thumbnails->queue());
        if (m_document->save(path, &error)) {
            m_autosave->discard();
            rememberShow(m_document->path());
            return true;
        }
    }
    report(tr("Save"), tr("The show could not be saved. What was on disk is unchanged."), {error});
    return false;
}

bool MainWindow::save() {
    return m_document->path().isEmpty() ? saveAs() : saveTo(m_document->path());
}

bool MainWindow::saveAs() {
    QString path = QFileDialog::getSaveFileName(this, tr("Save the show"), m_document->path(),
                                                tr("Slideshows (*.vshow)"));
    if (path.isEmpty()) {
        return false;
    }
    if (!hostkit::isShowFile(path)) {
        path += QStringLiteral(".vshow");
    }
    return saveTo(path);
}

void MainWindow::saveAction() {
    save();
}

void MainWindow::saveAsAction() {
    saveAs();
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

void MainWindow::addFiles(const QStringList& paths, int row) {
    if (paths.isEmpty()) {
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QStringList refused = m_document->addFiles(paths, row, m_preferences.background);
    QApplication::restoreOverrideCursor();
    if (!refused.isEmpty()) {
        report(tr("Add photos"),
               tr("%Ln file(s) are no readable photos.", nullptr, static_cast<int>(refused.size())),
               refused);
    }
}

void MainWindow::removeSelected() {
    m_document->slides().remove(m_view->selectedRows());
}

void MainWindow::locateSelected() {
    const QList<int> rows = m_view->selectedRows();
    if (rows.size() != 1) {
        return;
    }
    const SlidePtr slide = m_document->slides().slide(rows.first());
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Locate %1").arg(QFileInfo(slide->path()).fileName()));
    if (!path.isEmpty()) {
        const RenderQueue::Pause pause(m_thumbnails->queue());
        m_document->slides().relocate(rows.first(), path);
        m_thumbnails->invalidate(slide->id());
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
    // From now on, so that a crash in the dialog finds an automatic copy.
    m_document->markDirty();
    for (const SlidePtr& slide : m_document->slides().slides()) {
        slide->record().changed = 0;
    }
    m_document->slides().document().ShowProcessDialog(rows.first(), this, kSlideChanged);
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
    SlideModel& slides = m_document->slides();
    ExportDialog dialog(slides.count(), this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    stopPlaying();
    const RenderQueue::Pause pause(m_thumbnails->queue());
    m_isExporting = true;
    ExportProgress(slides.document(), slides.slides(), dialog.options(), this).exec();
    m_isExporting = false;
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
