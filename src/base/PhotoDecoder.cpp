#include "base/PhotoDecoder.h"

#include <QFile>
#include <QImageReader>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>
#include <opencv2/core/core_c.h>
#include <opencv2/imgproc.hpp>

#include "base/ImageView.h"
#include "base/JpegScans.h"
#include "base/PictureReader.h"

namespace vellora {
namespace {

/// The pixels of an Adobe CMYK file are stored inverted, so that 255 means no ink.
void convertCmykRow(const JSAMPLE* cmyk, int width, uchar* bgr) {
    for (int x = 0; x < width; ++x, cmyk += 4, bgr += 3) {
        const int black = cmyk[3];
        for (int ink = 0; ink < 3; ++ink) {
            bgr[2 - ink] = static_cast<uchar>(black - (((255 - cmyk[ink]) * black) >> 8));
        }
    }
}

struct JpegErrors {
    jpeg_error_mgr manager;  // first: the library hands out its address
    std::jmp_buf escape;
};

[[noreturn]] void escapeOnError(j_common_ptr codec) {
    std::longjmp(reinterpret_cast<JpegErrors*>(codec->err)->escape, 1);
}

void stayQuiet(j_common_ptr /*codec*/) {}

/// Ends the data behind the scans that are read.
void endAfterManyScans(j_common_ptr codec) {
    const auto* reader = reinterpret_cast<j_decompress_ptr>(codec);
    if (reader->input_scan_number > kMostJpegScans) {
        // The source then tells the end of the picture, and warns.
        reader->src->bytes_in_buffer = 0;
    }
}

/// Reads one JPEG picture. The library reports errors by a long jump, so everything that must be
/// cleaned up is a member and no local object lives across a call.
class JpegReader {
public:
    JpegReader() {
        m_codec.err = jpeg_std_error(&m_errors.manager);
        m_errors.manager.error_exit = escapeOnError;
        m_errors.manager.output_message = stayQuiet;
        m_progress.progress_monitor = endAfterManyScans;
    }
    ~JpegReader() { jpeg_destroy_decompress(&m_codec); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    /// Whether a header was read; the size is then known.
    bool open(const uchar* data, std::size_t size) {
        if (setjmp(m_errors.escape) != 0) {
            return false;
        }
        jpeg_create_decompress(&m_codec);
        m_codec.progress = &m_progress;
        jpeg_mem_src(&m_codec, data, static_cast<unsigned long>(size));
        jpeg_read_header(&m_codec, TRUE);
        return true;
    }

    [[nodiscard]] int width() const { return static_cast<int>(m_codec.image_width); }
    [[nodiscard]] int height() const { return static_cast<int>(m_codec.image_height); }
    [[nodiscard]] bool sawDamage() const { return m_errors.manager.num_warnings > 0; }

    /// Fills an image of the picture's size.
    bool read(const cv::Mat& image) {
        if (setjmp(m_errors.escape) != 0) {
            return false;
        }
        const bool cmyk =
            m_codec.jpeg_color_space == JCS_CMYK || m_codec.jpeg_color_space == JCS_YCCK;
        m_codec.out_color_space = cmyk ? JCS_CMYK : JCS_EXT_BGR;
        jpeg_start_decompress(&m_codec);
        if (cmyk) {
            m_row = static_cast<JSAMPLE*>(
                (*m_codec.mem->alloc_small)(reinterpret_cast<j_common_ptr>(&m_codec), JPOOL_IMAGE,
                                            std::size_t{4} * m_codec.output_width));
        }
        while (m_codec.output_scanline < m_codec.output_height) {
            uchar* target = image.data + image.step * m_codec.output_scanline;
            JSAMPROW row = cmyk ? m_row : target;
            jpeg_read_scanlines(&m_codec, &row, 1);
            if (cmyk) {
                convertCmykRow(row, static_cast<int>(m_codec.output_width), target);
            }
        }
        jpeg_finish_decompress(&m_codec);
        return true;
    }

private:
    jpeg_decompress_struct m_codec{};
    JpegErrors m_errors{};
    jpeg_progress_mgr m_progress{};
    JSAMPLE* m_row = nullptr;
};

ImagePtr toBgr(const QImage& picture) {
    const bool plain =
        picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32;
    const QImage straight = plain ? picture : picture.convertToFormat(QImage::Format_ARGB32);
    if (straight.isNull()) {
        return nullptr;
    }
    ImagePtr image = makeImage(straight.width(), straight.height());
    if (image != nullptr) {
        const cv::Mat bgra(straight.height(), straight.width(), CV_8UC4,
                           const_cast<uchar*>(straight.constBits()),
                           static_cast<std::size_t>(straight.bytesPerLine()));
        cv::cvtColor(bgra, cv::cvarrToMat(image.get()), cv::COLOR_BGRA2BGR);
    }
    return image;
}

}  // namespace

DecodedPhoto decodeJpeg(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    char start[3] = {};
    if (file.peek(start, sizeof start) != sizeof start || start[0] != '\xFF' ||
        start[1] != '\xD8' || start[2] != '\xFF') {
        return {};
    }
    if (file.size() > kMaxJpegBytes) {
        return {};
    }
    const QByteArray data = file.read(file.size());
    JpegReader reader;
    if (!reader.open(reinterpret_cast<const uchar*>(data.constData()),
                     static_cast<std::size_t>(data.size())) ||
        !isDecodable(reader.width(), reader.height())) {
        return {};
    }
    DecodedPhoto photo;
    photo.image = makeImage(reader.width(), reader.height());
    if (photo.image == nullptr || !reader.read(cv::cvarrToMat(photo.image.get()))) {
        return {};
    }
    photo.damaged = reader.sawDamage();
    return photo;
}

DecodedPhoto decodeWithQt(const QString& path) {
    QImageReader reader(path);
    reader.setAutoTransform(false);
    if (preparePicture(reader) != PictureKind::Readable) {
        return {};
    }
    const QImage picture = reader.read();
    if (!isDecodable(picture.width(), picture.height())) {
        return {};
    }
    return {toBgr(picture), false};
}

}  // namespace vellora
