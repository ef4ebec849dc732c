#include "base/PictureReader.h"

#include <QFileInfo>
#include <QImageReader>
#include <mutex>

namespace vellora {
namespace {

void raiseReaderLimit() {
    static std::once_flag raised;
    std::call_once(raised, [] {
        constexpr int kMegabytes = static_cast<int>(kMaxPictureBytes / (1024 * 1024)) + 1;
        const int current = QImageReader::allocationLimit();
        if (current != 0 && current < kMegabytes) {
            QImageReader::setAllocationLimit(kMegabytes);
        }
    });
}

/// A drawing may name further files and take any time; its reader loads it to tell its size.
bool isDrawing(const QByteArray& format) {
    return format == "svg" || format == "svgz" || format == "pdf";
}

bool isTooLong(const QByteArray& format, qint64 bytes) {
    // A TIFF file is read piece by piece, and holds any number of pictures.
    return format != "tiff" && bytes > (format == "jpeg" ? kMaxJpegBytes : kMaxPictureBytes);
}

}  // namespace

PictureKind preparePicture(QImageReader& reader) {
    raiseReaderLimit();
    // Pipes and devices have no end, or none that comes soon.
    if (const QString path = reader.fileName(); !path.isEmpty() && !QFileInfo(path).isFile()) {
        return PictureKind::NoPicture;
    }
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (format.isEmpty() || isDrawing(format) || isTooLong(format, reader.device()->size())) {
        return PictureKind::NoPicture;
    }
    const QSize size = reader.size();
    return size.isEmpty() || isDecodable(size.width(), size.height()) ? PictureKind::Readable
                                                                      : PictureKind::TooLarge;
}

}  // namespace vellora
