#include "common/Assets.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace vellora::hostkit {

QString assetsFolder() {
    const QString installed = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                              QStringLiteral("/" VELLORA_ASSETS_FROM_BIN));
    for (const QString& folder : {qEnvironmentVariable("VELLORA_ASSETS"), installed,
                                  QStringLiteral(VELLORA_SOURCE_ASSETS)}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) {
            return folder;
        }
    }
    return {};
}

}  // namespace vellora::hostkit
