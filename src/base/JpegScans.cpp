#include "base/JpegScans.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <algorithm>

#include "base/PictureReader.h"

namespace vellora {
namespace {

constexpr char kMarker = '\xFF';
constexpr char kEndOfImage = '\xD9';
constexpr char kStartOfScan = '\xDA';

/// Stuffed bytes, restarts and the start of the picture: no segment follows them.
bool standsAlone(char code) {
    const auto byte = static_cast<unsigned char>(code);
    return byte <= 0x01 || (byte >= 0xD0 && byte <= 0xD8);
}

}  // namespace

bool hasExcessiveScans(QByteArrayView data) {
    if (!data.startsWith("\xFF\xD8\xFF")) {
        return false;
    }
    int scans = 0;
    qsizetype at = data.indexOf(kMarker, 2);
    while (at >= 0 && at + 3 < data.size() && data[at + 1] != kEndOfImage) {
        const char code = data[at + 1];
        scans += code == kStartOfScan ? 1 : 0;
        if (scans > kMostJpegScans) {
            return true;
        }
        if (code == kMarker) {
            ++at;  // a fill byte: the marker may begin with the next one
        } else {
            at += 2 + (standsAlone(code) ? 0 : qFromBigEndian<quint16>(data.data() + at + 2));
            at = data.indexOf(kMarker, at);
        }
    }
    return false;
}

bool fileHasExcessiveScans(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const qint64 size = std::min<qint64>(file.size(), kMaxJpegBytes);
    const uchar* mapped = file.map(0, size);
    return mapped != nullptr &&
           hasExcessiveScans(QByteArrayView(reinterpret_cast<const char*>(mapped), size));
}

}  // namespace vellora
