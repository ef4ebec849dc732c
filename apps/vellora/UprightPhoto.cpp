#include "UprightPhoto.h"

#include <vellora/host/PhotoFile.h>

#include "Console.h"
#include "Paths.h"

namespace vellora::cli {

std::optional<hostkit::ShowPhoto> uprightPhoto(const QString& name) {
    PhotoInfo info;
    QString reason;
    if (!ReadPhotoInfo(name, &info, &reason)) {
        printError(QStringLiteral("%1: %2").arg(printable(name), reason));
        return std::nullopt;
    }
    hostkit::ShowPhoto photo;
    photo.path = absolutePathOf(name);
    photo.rotation = info.rotation;
    photo.flipX = info.flip_x != 0;
    photo.flipY = info.flip_y != 0;
    return photo;
}

}  // namespace vellora::cli
