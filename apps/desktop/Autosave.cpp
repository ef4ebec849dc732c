#include "desktop/Autosave.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <functional>
#include <utility>

#include "common/ShowFile.h"
#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

constexpr int kIntervalMs = 30'000;
constexpr int kMostCopies = 50;
const QString kEnding = QStringLiteral(".vshow");
const QString kUntitled = QStringLiteral("untitled-");

QDir dataFolder() {
    const QString path = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                         QStringLiteral("/autosave");
    QDir().mkpath(path);
    return {path};
}

/// Names of copies at one place. Several are needed while some wait for the user's decision.
QStringList namesFrom(const QString& start) {
    QStringList names{start + QStringLiteral(".autosave") + kEnding};
    for (int number = 2; number <= kMostCopies; ++number) {
        names.append(start + QStringLiteral(".autosave-") + QString::number(number) + kEnding);
    }
    return names;
}

QStringList besideShow(const QString& show) {
    const QFileInfo info(show);
    return namesFrom(info.absoluteDir().filePath(QLatin1Char('.') + info.completeBaseName()));
}

QStringList amongOwnData(const QString& show) {
    const QByteArray hash =
        QCryptographicHash::hash(show.toUtf8(), QCryptographicHash::Sha1).toHex();
    return namesFrom(dataFolder().filePath(QString::fromLatin1(hash)));
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
        return {freeName(besideShow(show)), freeName(amongOwnData(show))};
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

QString Autosave::freeName(const QStringList& names) const {
    const auto found = std::ranges::find_if(
        names, [this](const QString& name) { return name == m_copy || !QFile::exists(name); });
    return found != names.end() ? *found : QString();
}

bool Autosave::update() {
    if (!m_document.isDirty()) {
        discard();
        return true;
    }
    const QStringList paths = copyPaths();
    QString error;
    const auto written = std::find_if(paths.cbegin(), paths.cend(), [&](const QString& path) {
        return !path.isEmpty() && m_document.saveCopy(path, &error);
    });
    if (written == paths.cend()) {
        return false;  // an earlier copy is better than none
    }
    const QString previous = std::exchange(m_copy, *written);
    if (!previous.isEmpty() && previous != m_copy) {
        remove(previous);
    }
    return true;
}

void Autosave::discard() {
    if (!m_copy.isEmpty()) {
        remove(m_copy);
        m_copy.clear();
    }
}

QStringList Autosave::copiesOf(const QString& show) {
    // As documents name it.
    const QString path = hostkit::realPath(show);
    QStringList copies = besideShow(path) + amongOwnData(path);
    copies.removeIf([](const QString& copy) { return !QFileInfo(copy).isFile(); });
    std::ranges::stable_sort(copies, std::ranges::greater(),
                             [](const QString& copy) { return QFileInfo(copy).lastModified(); });
    return copies;
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
