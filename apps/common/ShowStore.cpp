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

constexpr int kProjectNames = 10;

/// One of the names that the project files of a show have in turn.
QString projectName(const QString& showFile, int number) {
    switch (number) {
        case 0:
            return defaultProjectPath(showFile);
        case 1:
            return besideShow(showFile, QStringLiteral(".alt.xml"));
        default:
            return besideShow(showFile, QStringLiteral(".alt%1.xml").arg(number));
    }
}

bool isProjectName(const QString& showFile, const QString& project) {
    for (int number = 0; number < kProjectNames; ++number) {
        if (project == projectName(showFile, number)) {
            return true;
        }
    }
    return false;
}

/// The project file that the show on disk names; empty when there is no such show.
QString projectOnDisk(const QString& showFile) {
    QStringList warnings;
    QString error;
    const std::optional<Show> show = readShow(showFile, &warnings, &error);
    return show ? show->projectPath : QString();
}

/// Whether another show in the same folder names the project file.
bool isNamedByAnother(const QString& project, const QString& showFile) {
    const QFileInfo own(showFile);
    const QDir folder = QFileInfo(project).absoluteDir();
    for (const QFileInfo& info :
         folder.entryInfoList({QStringLiteral("*.vshow")}, QDir::Files | QDir::Hidden)) {
        if (info.canonicalFilePath() != own.canonicalFilePath() &&
            projectOnDisk(info.filePath()) == project) {
            return true;
        }
    }
    return false;
}

/// The project file for the next save: not the one that the show names now, none of another show
/// and, under the usual name, none that is there. What else is there was left by a save that was
/// interrupted.
QString nextProject(const QString& showFile, const QString& old) {
    for (int number = 0; number < kProjectNames; ++number) {
        const QString name = projectName(showFile, number);
        const bool isFree =
            !QFile::exists(name) || (number > 0 && !isNamedByAnother(name, showFile));
        if (name != old && isFree) {
            return name;
        }
    }
    return {};
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
    const QString old = projectOnDisk(file);
    const bool isOurs = isProjectName(file, old) && problemOf(old).isEmpty();
    const QString target = nextProject(file, old);
    if (target.isEmpty()) {
        *error = QCoreApplication::translate("hostkit", "the names of its project file are taken");
        return false;
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
    if (isOurs && !isNamedByAnother(old, file)) {
        QFile::remove(old);
    }
    return true;
}

}  // namespace vellora::hostkit
