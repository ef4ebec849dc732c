#include "Paths.h"

#include <QDir>
#include <QFileInfo>

#include "Command.h"
#include "Console.h"

namespace vellora::cli {

QString absolutePathOf(const QString& file) {
    const QFileInfo info(file);
    if (!file.contains(QLatin1String(".."))) {
        return info.absoluteFilePath();
    }
    const QString name = info.fileName();
    if (name == QLatin1String("..")) {
        const QString real = info.canonicalFilePath();
        return real.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : real;
    }
    const QString folder = absolutePathOf(info.path());
    return name.isEmpty() || name == QLatin1String(".") ? folder : QDir(folder).filePath(name);
}

ProtectedFiles::ProtectedFiles(const QStringList& files) {
    for (const QString& file : files) {
        if (!file.isEmpty()) {  // a photo of a show may have no name
            m_paths << absolutePathOf(file);
        }
        if (const QString real = QFileInfo(file).canonicalFilePath(); !real.isEmpty()) {
            m_paths << real;
        }
    }
}

bool ProtectedFiles::holds(const QString& path) const {
    const QString absolute = absolutePathOf(path);
    const QFileInfo info(absolute);
    const QString folder = QFileInfo(info.path()).canonicalFilePath();
    return m_paths.contains(absolute) || m_paths.contains(info.canonicalFilePath()) ||
           m_paths.contains(QDir(folder).filePath(info.fileName()));
}

void ProtectedFiles::refuse(const QString& path, const QString& option) const {
    if (holds(path)) {
        throw UsageError(
            QStringLiteral("%1: '%2' is one of the files to read; it is never replaced")
                .arg(option, printable(path)));
    }
}

QString irregularity(const QString& file) {
    const QFileInfo info(file);
    const bool opens = !info.exists() || info.isFile() || info.isDir();
    return opens ? QString() : QStringLiteral("is not a regular file");
}

}  // namespace vellora::cli
