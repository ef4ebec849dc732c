#include "metafile/RunLength.h"

#include <algorithm>

namespace vellora::metafile {
namespace {

class Decoder {
public:
    Decoder(RecordView data, int width, int height, bool halfBytes)
        : m_data(data), m_width(width), m_height(height), m_halfBytes(halfBytes) {}

    RunLengthPixels decode() {
        while (m_data.has(m_at, 2) && m_row < m_height) {
            const std::uint8_t count = m_data.u8(m_at);
            const std::uint8_t value = m_data.u8(m_at + 1);
            m_at += 2;
            if (count > 0)
                addRun(count, value);
            else if (value > 2)
                addPixels(value);
            else if (!escape(value))
                break;
        }
        return std::move(m_pixels);
    }

private:
    /// The end of a line, of the picture, or a step; false at the end of the picture.
    bool escape(std::uint8_t code) {
        if (code == 1)
            return false;
        if (code == 0) {
            m_column = 0;
            ++m_row;
        } else {
            m_column = std::min(m_column + m_data.u8(m_at), m_width);
            m_row += m_data.u8(m_at + 1);
            m_at += 2;
        }
        return true;
    }

    void addRun(std::uint8_t count, std::uint8_t value) {
        begin(count);
        for (unsigned i = 0; i < count; ++i)
            add(m_halfBytes ? ((i & 1) == 0 ? value >> 4 : value & 0x0F) : value);
    }

    void addPixels(std::uint8_t count) {
        begin(count);
        for (unsigned i = 0; i < count; ++i) {
            const std::uint8_t byte = m_data.u8(m_at + (m_halfBytes ? i / 2 : i));
            add(m_halfBytes ? ((i & 1) == 0 ? byte >> 4 : byte & 0x0F) : byte);
        }
        const std::size_t bytes = m_halfBytes ? (count + 1U) / 2 : count;
        m_at += (bytes + 1) & ~std::size_t{1};
    }

    void begin(int count) {
        const int fits = std::min(count, m_width - m_column);
        m_open = static_cast<std::size_t>(fits);
        if (fits > 0)
            m_pixels.runs.push_back({m_row, m_column, m_pixels.indices.size(), m_open});
        m_column += fits;
    }

    void add(int index) {
        if (m_open > 0) {
            m_pixels.indices.push_back(static_cast<std::uint8_t>(index));
            --m_open;
        }
    }

    RecordView m_data;
    int m_width;
    int m_height;
    bool m_halfBytes;
    std::size_t m_at = 0;
    int m_row = 0;
    int m_column = 0;
    std::size_t m_open = 0;
    RunLengthPixels m_pixels;
};

}  // namespace

RunLengthPixels decodeRunLengthPixels(RecordView data, int width, int height, bool halfBytes) {
    return Decoder(data, width, height, halfBytes).decode();
}

}  // namespace vellora::metafile
