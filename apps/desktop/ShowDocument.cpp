#include "desktop/ShowDocument.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <vellora/host/PhotoFile.h>

#include "common/ShowStore.h"

namespace vellora::desktop {
namespace {

QString lockPath(const QString& show) {
    const QFileInfo info(hostkit::realPath(show));
    return info.absoluteDir().filePath(QStringLiteral(".%1.lock").arg(info.fileName()));
}

QStringList filesIn(const QString& folder) {
    QStringList files;
    QDirIterator entries(folder, QDir::Files | QDir::Readable, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        files.append(entries.next());
    }
    files.sort(Qt::CaseInsensitive);
    return files;
}

}  // namespace

ShowDocument::ShowDocument(QObject* parent) : QObject(parent) {
    connect(&m_slides, &SlideModel::edited, this, &ShowDocument::markDirty);
}

ShowDocument::~ShowDocument() = default;

QString ShowDocument::displayName() const {
    return m_path.isEmpty() ? tr("Untitled") : QFileInfo(m_path).completeBaseName();
}

ShowDocument::Stamp ShowDocument::Stamp::of(const QString& file) {
    const QFileInfo info(file);
    return {info.lastModified(), info.size()};
}

bool ShowDocument::isChangedOnDisk() const {
    return !m_path.isEmpty() && QFileInfo::exists(m_path) && Stamp::of(m_path) != m_stamp;
}

void ShowDocument::setState(const QString& path, bool dirty) {
    m_path = path;
    m_stamp = Stamp::of(path);
    m_dirty = dirty;
    Q_EMIT stateChanged();
}

void ShowDocument::markDirty() {
    if (!m_dirty) {
        m_dirty = true;
        Q_EMIT stateChanged();
    }
}

void ShowDocument::markClean() {
    if (m_dirty) {
        m_dirty = false;
        Q_EMIT stateChanged();
    }
}

bool ShowDocument::lock(const QString& path) {
    auto file = std::make_unique<QLockFile>(lockPath(path));
    file->setStaleLockTime(0);
    if (!file->tryLock(0) && file->error() == QLockFile::LockFailedError) {
        return false;
    }
    m_lock = std::move(file);
    return true;
}

QString ShowDocument::lockingComputer(const QString& show) {
    qint64 process = 0;
    QString computer;
    QString program;
    QLockFile(lockPath(show)).getLockInfo(&process, &computer, &program);
    return computer;
}

void ShowDocument::startNew() {
    m_slides.clear();
    m_unknown = {};
    m_lock.reset();
    setState({}, false);
}

bool ShowDocument::load(const QString& source, QStringList* problems) {
    QString error;
    const std::optional<hostkit::Show> show = hostkit::readShow(source, problems, &error);
    if (!show) {
        problems->append(error);
        return false;
    }
    m_slides.clear();
    m_slides.insert(0, show->photos);
    m_slides.history().clear();
    const QString problem = hostkit::loadEdits(*show, m_slides.document());
    if (!problem.isEmpty()) {
        problems->append(tr("The edits cannot be read: %1: %2")
                             .arg(QDir::toNativeSeparators(show->projectPath), problem));
    }
    m_unknown = show->unknown;
    if (!QFileInfo::exists(show->projectPath)) {
        problems->append(
            tr("The edits are missing: %1").arg(QDir::toNativeSeparators(show->projectPath)));
    }
    return true;
}

ShowDocument::OpenResult ShowDocument::open(const QString& path, QStringList* problems) {
    const QString full = hostkit::realPath(path);
    std::unique_ptr<QLockFile> previous;
    if (full != m_path) {
        previous = std::move(m_lock);
        if (!lock(full)) {
            m_lock = std::move(previous);
            return OpenResult::LockedByOther;
        }
    }
    if (!load(full, problems)) {
        if (full != m_path) {
            m_lock = std::move(previous);
        }
        return OpenResult::Failed;
    }
    setState(full, false);
    return OpenResult::Opened;
}

bool ShowDocument::import(const QString& source, const QString& path, QStringList* problems) {
    if (!load(source, problems)) {
        return false;
    }
    m_lock.reset();
    if (!path.isEmpty()) {
        lock(path);
    }
    setState(path, true);
    return true;
}

bool ShowDocument::saveCopy(const QString& path, QString* error) {
    hostkit::Show show;
    show.unknown = m_unknown;
    for (const SlidePtr& slide : m_slides.slides()) {
        show.photos.push_back(slide->toShow());
    }
    return hostkit::saveShow(path, show, m_slides.document(), error);
}

QByteArray ShowDocument::contents() {
    const QTemporaryDir folder;
    QString error;
    QByteArray bytes;
    if (folder.isValid() && saveCopy(folder.filePath(QStringLiteral("show.vshow")), &error)) {
        for (const QFileInfo& info : QDir(folder.path()).entryInfoList(QDir::Files, QDir::Name)) {
            QFile file(info.filePath());
            if (file.open(QIODevice::ReadOnly)) {
                bytes += file.readAll();
            }
        }
    }
    return bytes;
}

bool ShowDocument::save(const QString& path, QString* error) {
    const QString full = hostkit::realPath(path);
    std::unique_ptr<QLockFile> previous;
    if (full != m_path) {
        previous = std::move(m_lock);
        if (!lock(full)) {
            m_lock = std::move(previous);
            *error = tr("another window works on this show");
            return false;
        }
    }
    if (!saveCopy(full, error)) {
        if (full != m_path) {
            m_lock = std::move(previous);
        }
        return false;
    }
    setState(full, false);
    return true;
}

QStringList ShowDocument::addFiles(const QStringList& paths, int row, COLORREF background) {
    QStringList refused;
    std::vector<hostkit::ShowPhoto> photos;
    const auto add = [&](const QString& path, bool quietly) {
        PhotoInfo info;
        if (!ReadPhotoInfo(path, &info)) {
            if (!quietly) {
                refused.append(QFileInfo(path).fileName());
            }
            return;
        }
        hostkit::ShowPhoto photo;
        photo.path = QFileInfo(path).absoluteFilePath();
        if (!hostkit::fitsRecord(photo.path)) {
            refused.append(QFileInfo(path).fileName());
            return;
        }
        photo.rotation = info.rotation;
        photo.flipX = info.flip_x != 0;
        photo.flipY = info.flip_y != 0;
        photo.background = background;
        photos.push_back(photo);
    };
    for (const QString& path : paths) {
        if (QFileInfo(path).isDir()) {
            for (const QString& file : filesIn(path)) {
                add(file, true);
            }
        } else {
            add(path, false);
        }
    }
    if (!photos.empty()) {
        m_slides.insert(row, photos);
        markDirty();
    }
    return refused;
}

}  // namespace vellora::desktop
