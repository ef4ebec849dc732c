// Opening, recovering and saving shows in the main window.

#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>
#include <QSysInfo>

#include "desktop/Autosave.h"
#include "desktop/MainWindow.h"
#include "desktop/MessageBox.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideView.h"

namespace vellora::desktop {
namespace {

/// Tells who works on a show, and asks whether a copy is wanted.
QString lockedText(const QString& show) {
    const QString computer = ShowDocument::lockingComputer(show);
    return computer.isEmpty() || computer == QSysInfo::machineHostName()
               ? MainWindow::tr("Another window works on this show. Open a copy?")
               : MainWindow::tr(
                     "The show is open on the computer \"%1\", or was when that "
                     "stopped. Open a copy?")
                     .arg(computer);
}

}  // namespace

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
            if (QFileInfo::exists(path) || Autosave::copiesOf(path).isEmpty()) {
                report(tr("Open a show"),
                       tr("\"%1\" cannot be opened.").arg(QFileInfo(path).fileName()), problems);
            }
            offerCopies(hostkit::realPath(path));
            return;
        case ShowDocument::OpenResult::LockedByOther:
            if (MessageBox::ask(this, tr("Open a show"), lockedText(path)) == MessageBox::Yes &&
                !paused([&] { return m_document->import(path, {}, &problems); })) {
                report(tr("Open a show"),
                       tr("\"%1\" cannot be opened.").arg(QFileInfo(path).fileName()), problems);
            }
            return;
        case ShowDocument::OpenResult::Opened:
            break;
    }
    rememberShow(m_document->path());
    // So that the keyboard can go on from here.
    m_view->setCurrentIndex(m_document->slides().index(0));
    if (!problems.isEmpty()) {
        report(tr("Open a show"), tr("Some of the show could not be read."), problems);
    }
    offerCopies(m_document->path());
}

void MainWindow::offerCopies(const QString& show) {
    for (const QString& copy : Autosave::copiesOf(show)) {
        if (recover(copy, show) != Decision::Refused) {
            return;
        }
    }
}

MainWindow::Decision MainWindow::recover(const QString& copy, const QString& show) {
    const QString name = show.isEmpty() ? tr("A show that was never saved")
                                        : tr("The show \"%1\"").arg(QFileInfo(show).fileName());
    const QString when = QLocale().toString(QFileInfo(copy).lastModified(), QLocale::ShortFormat);
    MessageBox box(MessageBox::Question, tr("Recover changes"),
                   tr("%1 has changes of %2 that were not saved.").arg(name, when), {}, this);
    if (!show.isEmpty() && !QFileInfo::exists(show)) {
        box.setInformativeText(tr("The show itself is no longer there."));
    } else if (!show.isEmpty() && QFileInfo(show).lastModified() > QFileInfo(copy).lastModified()) {
        box.setInformativeText(tr("The show was saved after that."));
    }
    const QPushButton* take = box.addButton(tr("Recover"), MessageBox::AcceptRole);
    const QPushButton* drop = box.addButton(tr("Delete changes"), MessageBox::DestructiveRole);
    box.addButton(tr("Later"), MessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == take) {
        takeCopy(copy, show);
        return Decision::Taken;
    }
    if (box.clickedButton() == drop) {
        Autosave::remove(copy);
        return Decision::Refused;
    }
    return Decision::Later;
}

void MainWindow::takeCopy(const QString& copy, const QString& show) {
    stopPlaying();
    QStringList problems;
    if (!paused([&] { return m_document->import(copy, show, &problems); })) {
        report(tr("Recover changes"), tr("The changes cannot be read."), problems);
        return;
    }
    if (!show.isEmpty()) {
        rememberShow(show);
    }
    // The copy goes when the window has one of its own.
    if (autosave()) {
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
    MessageBox box(MessageBox::Warning, tr("Save"),
                   tr("The show could not be saved. What was on disk is unchanged."),
                   MessageBox::Cancel, this);
    box.setInformativeText(error);
    const QPushButton* elsewhere = box.addButton(tr("Save &as..."), MessageBox::AcceptRole);
    box.exec();
    return box.clickedButton() == elsewhere && saveAs();
}

bool MainWindow::save() {
    if (m_document->path().isEmpty()) {
        return saveAs();
    }
    if (m_document->isChangedOnDisk()) {
        MessageBox box(MessageBox::Warning, tr("Save"),
                       tr("Another program has changed the show \"%1\" since it was opened here.")
                           .arg(m_document->displayName()),
                       MessageBox::Cancel, this);
        const QAbstractButton* replace =
            box.addButton(tr("&Replace it"), MessageBox::DestructiveRole);
        const QAbstractButton* elsewhere = box.addButton(tr("Save &as..."), MessageBox::AcceptRole);
        box.exec();
        if (box.clickedButton() != replace) {
            return box.clickedButton() == elsewhere && saveAs();
        }
    }
    return saveTo(m_document->path());
}

bool MainWindow::saveAs() {
    QString path = QFileDialog::getSaveFileName(this, tr("Save the show"), m_document->path(),
                                                tr("Slideshows (*.vshow)"));
    if (path.isEmpty()) {
        return false;
    }
    if (!hostkit::isShowFile(path)) {
        path += QStringLiteral(".vshow");
        // The file dialog has asked for the name without the ending.
        if (QFileInfo::exists(path) &&
            MessageBox::ask(
                this, tr("Save the show"),
                tr("\"%1\" exists already. Replace it?").arg(QFileInfo(path).fileName())) !=
                MessageBox::Yes) {
            return false;
        }
    }
    return saveTo(path);
}

void MainWindow::saveAction() {
    save();
}

void MainWindow::saveAsAction() {
    saveAs();
}

}  // namespace vellora::desktop
