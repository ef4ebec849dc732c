#include "PictureFile.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>

#include "OutputFolder.h"

namespace vellora::cli {
namespace {

bool encode(const QImage& picture, QFile& file, const PictureFormat& format) {
    QImageWriter writer(&file, format.name);
    if (format.quality) {
        writer.setQuality(*format.quality);
    }
    if (format.compression) {
        writer.setCompression(*format.compression);
    }
    return writer.write(picture);
}

}  // namespace

bool writePicture(const QImage& picture, const QString& path, const PictureFormat& format) {
    QFile file(path);
    if (picture.isNull() || !file.open(QIODevice::WriteOnly)) {
        return false;
    }
    // The writer does not look whether the last piece, which waits in the file's buffer, gets out.
    bool written =
        encode(picture, file, format) && file.flush() && file.error() == QFileDevice::NoError;
    file.close();
    written = written && file.error() == QFileDevice::NoError;
    if (!written && QFileInfo(path).isFile()) {
        file.remove();
    }
    return written;
}

bool replacePicture(const QImage& picture, const QString& path) {
    const QFileInfo named(path);
    const QString real = named.canonicalFilePath();  // empty for a link that leads nowhere
    const QFileInfo target(!named.isSymLink() ? path
                           : real.isEmpty()   ? named.symLinkTarget()
                                              : real);
    if (target.exists() && !target.isFile()) {
        return writePicture(picture, path);
    }
    if (!QFileInfo(target.path()).isDir() || (target.exists() && !target.isWritable())) {
        return false;
    }
    OutputFolder folder(target.path(), true);
    if (!folder.problem().isEmpty()) {
        return false;
    }
    const QString scratch = folder.scratchFile(QStringLiteral("png"));
    return writePicture(picture, scratch) && !folder.publish(scratch, target.fileName()).isEmpty();
}

}  // namespace vellora::cli
