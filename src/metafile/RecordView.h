#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vellora::metafile {

/// Bytes of one record, read as little-endian fields by offset. A read outside the bytes gives 0,
/// so a damaged record can never reach past itself.
class RecordView {
public:
    RecordView() = default;
    RecordView(const unsigned char* data, std::size_t size) : m_data(data), m_size(size) {}

    const unsigned char* data() const { return m_data; }
    std::size_t size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }

    bool has(std::size_t offset, std::size_t count) const {
        return offset <= m_size && count <= m_size - offset;
    }
    /// The part from `offset`, empty when it does not lie wholly inside.
    RecordView part(std::size_t offset, std::size_t count) const {
        return has(offset, count) ? RecordView(m_data + offset, count) : RecordView();
    }
    RecordView from(std::size_t offset) const {
        return offset < m_size ? RecordView(m_data + offset, m_size - offset) : RecordView();
    }

    std::uint8_t u8(std::size_t offset) const { return has(offset, 1) ? m_data[offset] : 0; }
    std::uint16_t u16(std::size_t offset) const {
        return has(offset, 2)
                   ? static_cast<std::uint16_t>(m_data[offset] | (m_data[offset + 1] << 8))
                   : std::uint16_t{0};
    }
    std::int16_t i16(std::size_t offset) const { return static_cast<std::int16_t>(u16(offset)); }
    std::uint32_t u32(std::size_t offset) const {
        return has(offset, 4) ? u16(offset) | (std::uint32_t{u16(offset + 2)} << 16) : 0U;
    }
    std::int32_t i32(std::size_t offset) const { return static_cast<std::int32_t>(u32(offset)); }
    float f32(std::size_t offset) const {
        const std::uint32_t bits = u32(offset);
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

private:
    const unsigned char* m_data = nullptr;
    std::size_t m_size = 0;
};

}  // namespace vellora::metafile
