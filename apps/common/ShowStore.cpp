#include "common/ShowStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <utility>

#include <vellora/host/ImageObj.h>

namespace vellora::hostkit {
namespace {

QString alternateProjectPath(const QString& showFile) {
    const QFileInfo info(showFile);
    return info.absoluteDir().filePath(info.completeBaseName() + QStringLiteral(".alt.xml"));
}

/// The project file that the show on disk names; empty when there is no such show.
QString projectOnDisk(const QString& showFile) {
    QStringList warnings;
    QString error;
    const std::optional<Show> show = readShow(showFile, &warnings, &error);
    return show ? show->projectPath : QString();
}

}  // namespace

bool saveShow(const QString& file, Show& show, CImageObj& document, QString* error) {
    const QString usual = defaultProjectPath(file);
    const QString alternate = alternateProjectPath(file);
    const QString old = projectOnDisk(file);
    const bool usualIsTaken = old == usual || (old != alternate && QFile::exists(usual));
    const QString target = usualIsTaken ? alternate : usual;

    if (document.SaveToXMLFile(target) != S_OK) {
        *error = QStringLiteral("cannot write %1").arg(QDir::toNativeSeparators(target));
        return false;
    }
    const QString before = std::exchange(show.projectPath, target);
    if (!writeShow(file, show, error)) {
        show.projectPath = before;
        QFile::remove(target);
        return false;
    }
    if (old == usual || old == alternate) {
        QFile::remove(old);
    }
    return true;
}

}  // namespace vellora::hostkit
