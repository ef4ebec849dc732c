#include "common/ShowStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <utility>

#include <vellora/host/ImageObj.h>
#include <vellora/project/ProjectContents.h>

namespace vellora::hostkit {
namespace {

constexpr qint64 kLeastRoom = 1 << 20;

QString besideShow(const QString& showFile, const char* ending) {
    const QFileInfo info(showFile);
    return info.absoluteDir().filePath(info.completeBaseName() + QLatin1String(ending));
}

/// The project file that the show on disk names; empty when there is no such show.
QString projectOnDisk(const QString& showFile) {
    QStringList warnings;
    QString error;
    const std::optional<Show> show = readShow(showFile, &warnings, &error);
    return show ? show->projectPath : QString();
}

/// Why a file could not be written, as far as its folder tells.
QString obstacleOf(const QString& file) {
    const QFileInfo folder(QFileInfo(file).absolutePath());
    const QString name = QDir::toNativeSeparators(folder.filePath());
    const QStorageInfo disk(folder.filePath());
    if (!folder.isDir()) {
        return QCoreApplication::translate("hostkit", "there is no folder %1").arg(name);
    }
    if (!folder.isWritable() || disk.isReadOnly()) {
        return QCoreApplication::translate("hostkit", "the folder %1 is read-only").arg(name);
    }
    if (disk.isValid() && disk.bytesAvailable() < kLeastRoom) {
        return QCoreApplication::translate("hostkit", "the disk is full");
    }
    return QCoreApplication::translate("hostkit", "cannot write %1")
        .arg(QDir::toNativeSeparators(file));
}

/// Why a project file cannot be read; empty when it can.
QString problemOf(const QString& project) {
    ProjectContents contents;
    QString reason;
    return ReadProject(project, {}, &contents, &reason) ? QString() : reason;
}

}  // namespace

QString loadEdits(const Show& show, CImageObj& document) {
    if (!QFileInfo::exists(show.projectPath)) {
        return {};
    }
    QString problem;
    if (document.LoadFromXMLFile(show.projectPath, &problem) != S_OK && problem.isEmpty()) {
        problem = QStringLiteral("there is not enough memory");
    }
    return problem;
}

bool saveShow(const QString& file, Show& show, CImageObj& document, QString* error) {
    const QString usual = defaultProjectPath(file);
    const QString first = besideShow(file, ".alt.xml");
    const QString second = besideShow(file, ".alt2.xml");
    const QString old = projectOnDisk(file);
    const bool isOurs = (old == usual || old == first || old == second) && problemOf(old).isEmpty();
    QString target = usual;
    if (old == usual || old == second || (old != first && QFile::exists(usual))) {
        target = first;
    } else if (old == first && QFile::exists(usual)) {
        target = second;
    }

    if (document.SaveToXMLFile(target) != S_OK) {
        *error = obstacleOf(target);
        return false;
    }
    const QString before = std::exchange(show.projectPath, target);
    if (!writeShow(file, show, error)) {
        show.projectPath = before;
        QFile::remove(target);
        return false;
    }
    if (isOurs) {
        QFile::remove(old);
    }
    return true;
}

}  // namespace vellora::hostkit
