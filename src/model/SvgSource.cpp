#include "model/SvgSource.h"

#include <QFile>
#include <algorithm>

#include <zlib.h>

#include "model/SvgCheck.h"

namespace vellora {
namespace {

std::nullopt_t refuse(QString& reason, const char* why) {
    reason = QString::fromLatin1(why);
    return std::nullopt;
}

/// Undoes gzip; nothing where the data is damaged. The result ends one byte behind the bound.
std::optional<QByteArray> inflated(const QByteArray& data) {
    z_stream stream{};
    constexpr int kGzipWindow = 15 + 16;
    if (inflateInit2(&stream, kGzipWindow) != Z_OK) {
        return std::nullopt;
    }
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.constData()));
    stream.avail_in = static_cast<uInt>(data.size());
    QByteArray text;
    int state = Z_OK;
    while (state == Z_OK && text.size() <= kMaxSvgBytes) {
        constexpr qsizetype kStep = 64 << 10;
        const qsizetype before = text.size();
        text.resize(std::min<qsizetype>(before + std::max(before, kStep), kMaxSvgBytes + 1));
        stream.next_out = reinterpret_cast<Bytef*>(text.data() + before);
        stream.avail_out = static_cast<uInt>(text.size() - before);
        state = inflate(&stream, Z_NO_FLUSH);
        text.chop(stream.avail_out);
    }
    inflateEnd(&stream);
    return state == Z_STREAM_END || text.size() > kMaxSvgBytes ? std::optional(text) : std::nullopt;
}

}  // namespace

std::optional<SvgSource> readSvg(const QString& path, QString& reason) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return refuse(reason, "the file cannot be read");
    }
    return readSvg(file.read(kMaxSvgBytes + 1), reason);
}

std::optional<SvgSource> readSvg(QByteArray bytes, QString& reason) {
    if (bytes.size() <= kMaxSvgBytes && bytes.startsWith("\x1F\x8B")) {
        std::optional<QByteArray> text = inflated(bytes);
        if (!text) {
            return refuse(reason, "not a usable SVG picture");
        }
        bytes = std::move(*text);
    }
    if (bytes.size() > kMaxSvgBytes) {
        return refuse(reason, "the picture is too large");
    }
    SvgCheck check(bytes);
    if (const char* const fault = check.run()) {
        return refuse(reason, fault);
    }
    return SvgSource{std::move(bytes), check.elements(), check.imagePixels()};
}

}  // namespace vellora
