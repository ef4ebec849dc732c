#include "base/JpegEncoder.h"

#include <QSaveFile>
#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace vellora {
namespace {

struct JpegErrors {
    jpeg_error_mgr manager;  // first: the library hands out its address
    std::jmp_buf escape;
};

[[noreturn]] void escapeOnError(j_common_ptr codec) {
    std::longjmp(reinterpret_cast<JpegErrors*>(codec->err)->escape, 1);
}

void stayQuiet(j_common_ptr /*codec*/) {}

/// Hands the encoder's output to a file in large pieces.
struct FileTarget {
    jpeg_destination_mgr manager;  // first: the library hands out its address
    QIODevice* file;
    std::array<JOCTET, 65536> buffer;
};

FileTarget* targetOf(j_compress_ptr codec) {
    return reinterpret_cast<FileTarget*>(codec->dest);
}

void startOutput(j_compress_ptr codec) {
    FileTarget* target = targetOf(codec);
    target->manager.next_output_byte = target->buffer.data();
    target->manager.free_in_buffer = target->buffer.size();
}

void write(j_compress_ptr codec, std::size_t count) {
    FileTarget* target = targetOf(codec);
    const auto bytes = static_cast<qint64>(count);
    if (target->file->write(reinterpret_cast<const char*>(target->buffer.data()), bytes) != bytes) {
        escapeOnError(reinterpret_cast<j_common_ptr>(codec));
    }
}

boolean emptyOutput(j_compress_ptr codec) {
    write(codec, targetOf(codec)->buffer.size());
    startOutput(codec);
    return TRUE;
}

void endOutput(j_compress_ptr codec) {
    FileTarget* target = targetOf(codec);
    write(codec, target->buffer.size() - target->manager.free_in_buffer);
}

/// The library reports errors by a long jump, so everything that must be cleaned up is a member
/// and no local object lives across a call.
class JpegWriter {
public:
    explicit JpegWriter(QIODevice& file) {
        m_codec.err = jpeg_std_error(&m_errors.manager);
        m_errors.manager.error_exit = escapeOnError;
        m_errors.manager.output_message = stayQuiet;
        m_target.manager.init_destination = startOutput;
        m_target.manager.empty_output_buffer = emptyOutput;
        m_target.manager.term_destination = endOutput;
        m_target.file = &file;
    }
    ~JpegWriter() { jpeg_destroy_compress(&m_codec); }
    JpegWriter(const JpegWriter&) = delete;
    JpegWriter& operator=(const JpegWriter&) = delete;

    bool write(const cv::Mat& bgr, int quality) {
        if (setjmp(m_errors.escape) != 0) {
            return false;
        }
        jpeg_create_compress(&m_codec);
        m_codec.dest = &m_target.manager;
        m_codec.image_width = static_cast<JDIMENSION>(bgr.cols);
        m_codec.image_height = static_cast<JDIMENSION>(bgr.rows);
        m_codec.input_components = 3;
        m_codec.in_color_space = JCS_EXT_BGR;
        jpeg_set_defaults(&m_codec);
        jpeg_set_quality(&m_codec, std::clamp(quality, 0, 100), TRUE);
        jpeg_start_compress(&m_codec, TRUE);
        while (m_codec.next_scanline < m_codec.image_height) {
            JSAMPROW row = bgr.data + bgr.step * m_codec.next_scanline;
            jpeg_write_scanlines(&m_codec, &row, 1);
        }
        jpeg_finish_compress(&m_codec);
        return true;
    }

private:
    jpeg_compress_struct m_codec{};
    JpegErrors m_errors{};
    FileTarget m_target{};
};

}  // namespace

bool writeJpeg(const QString& path, const cv::Mat& bgr, int quality) {
    if (bgr.empty() || bgr.cols > JPEG_MAX_DIMENSION || bgr.rows > JPEG_MAX_DIMENSION) {
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    JpegWriter writer(file);
    if (!writer.write(bgr, quality)) {
        file.cancelWriting();
        return false;
    }
    // commit() alone would not notice that the last piece cannot be written.
    return file.flush() && file.commit();
}

}  // namespace vellora
