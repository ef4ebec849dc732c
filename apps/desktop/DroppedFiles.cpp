#include "desktop/DroppedFiles.h"

#include <QFile>
#include <QFileInfo>
#include <filesystem>
#include <string>
#include <system_error>

namespace vellora::desktop {
namespace {

namespace fs = std::filesystem;

bool isText(const std::string& name) {
    return QFile::encodeName(QFile::decodeName(name.c_str())).toStdString() == name;
}

}  // namespace

DroppedFiles::DroppedFiles(const QList<QUrl>& urls) {
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) {
            paths.append(url.toLocalFile());
        } else {
            refused.append(url.toDisplayString());
        }
    }
}

QStringList namelessFilesIn(const QStringList& folders) {
    QStringList result;
    for (const QString& folder : folders) {
        if (!QFileInfo(folder).isDir()) {
            continue;
        }
        std::error_code error;
        fs::recursive_directory_iterator entry(fs::path(QFile::encodeName(folder).toStdString()),
                                               fs::directory_options::skip_permission_denied,
                                               error);
        for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
            const std::string name = entry->path().filename().string();
            const bool isHidden = name.starts_with('.');
            const bool isSound = isText(name);
            if (isHidden || !isSound) {
                entry.disable_recursion_pending();
            }
            if (!isHidden && !isSound) {
                result.append(QFile::decodeName(name.c_str()));
            }
        }
    }
    return result;
}

}  // namespace vellora::desktop
