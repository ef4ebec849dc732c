// Any bytes as a metafile: whatever they hold, loading and drawing end, and end well.

#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstddef>
#include <cstdint>

#include "metafile/MetafilePicture.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto picture = vellora::MetafilePicture::fromBytes(bytes)) {
        QImage image(120, 90, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        picture->draw(painter, QRectF(image.rect()));
    }
    return 0;
}
