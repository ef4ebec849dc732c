#include "desktop/Autosave.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "common/ShowFile.h"
#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

constexpr int kIntervalMs = 30'000;
const QString kEnding = QStringLiteral(".vshow");
const QString kUntitled = QStringLiteral("untitled-");

QDir dataFolder() {
    const QString path = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                         QStringLiteral("/autosave");
    QDir().mkpath(path);
    return {path};
}

QString besideShow(const QString& show) {
    const QFileInfo info(show);
    return info.absoluteDir().filePath(
        QStringLiteral(".%1.autosave.vshow").arg(info.completeBaseName()));
}

QString amongOwnData(const QString& show) {
    const QByteArray hash =
        QCryptographicHash::hash(show.toUtf8(), QCryptographicHash::Sha1).toHex();
    return dataFolder().filePath(QString::fromLatin1(hash) + QStringLiteral(".autosave.vshow"));
}

QString lockOf(const QString& untitled) {
    return untitled + QStringLiteral(".lock");
}

}  // namespace

Autosave::Autosave(ShowDocument& document, QObject* parent)
    : QObject(parent), m_document(document) {
    m_timer.setInterval(kIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &Autosave::due);
    m_timer.start();
}

Autosave::~Autosave() = default;

QStringList Autosave::copyPaths() {
    const QString& show = m_document.path();
    if (!show.isEmpty()) {
        return {besideShow(show), amongOwnData(show)};
    }
    for (int number = 1; m_untitled.isEmpty() && number < 1000; ++number) {
        const QString path =
            dataFolder().filePath(QStringLiteral("%1%2.vshow").arg(kUntitled).arg(number));
        auto lock = std::make_unique<QLockFile>(lockOf(path));
        lock->setStaleLockTime(0);
        if (!QFile::exists(path) && lock->tryLock(0)) {
            m_untitled = path;
            m_untitledLock = std::move(lock);
        }
    }
    return {m_untitled};
}

void Autosave::update() {
    if (!m_document.isDirty()) {
        discard();
        return;
    }
    const QStringList paths = copyPaths();
    QString error;
    const auto written = std::find_if(paths.cbegin(), paths.cend(), [&](const QString& path) {
        return !path.isEmpty() && m_document.saveCopy(path, &error);
    });
    if (written == paths.cend()) {
        return;  // an earlier copy is better than none
    }
    const QString previous = std::exchange(m_copy, *written);
    if (!previous.isEmpty() && previous != m_copy) {
        remove(previous);
    }
}

void Autosave::discard() {
    if (!m_copy.isEmpty()) {
        remove(m_copy);
        m_copy.clear();
    }
}

QString Autosave::newerCopyOf(const QString& show) {
    const QDateTime saved = QFileInfo(show).lastModified();
    for (const QString& copy :
         {besideShow(show), amongOwnData(QFileInfo(show).absoluteFilePath())}) {
        const QFileInfo info(copy);
        if (info.exists() && info.lastModified() > saved) {
            return copy;
        }
    }
    return {};
}

QStringList Autosave::orphans() {
    QStringList result;
    const QDir folder = dataFolder();
    for (const QString& name : folder.entryList({kUntitled + QStringLiteral("*.vshow")})) {
        const QString path = folder.filePath(name);
        QLockFile lock(lockOf(path));
        lock.setStaleLockTime(0);
        if (lock.tryLock(0)) {
            result.append(path);
        }
    }
    return result;
}

void Autosave::remove(const QString& copy) {
    QStringList warnings;
    QString error;
    const auto show = hostkit::readShow(copy, &warnings, &error);
    // Only the edits that were written with it; a foreign file may name anything.
    if (show && show->projectPath.startsWith(copy.chopped(kEnding.size()))) {
        QFile::remove(show->projectPath);
    }
    QFile::remove(copy);
}

}  // namespace vellora::desktop
