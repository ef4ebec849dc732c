#include "xml/XmlPlaces.h"

namespace vellora {

XmlPlace XmlPlaces::of(std::ptrdiff_t offset) {
    const auto end = qBound(qsizetype{0}, qsizetype{offset}, m_document.size());
    if (end < m_offset) {
        m_offset = 0;
        m_place = {};
    }
    for (; m_offset < end; ++m_offset) {
        const char c = m_document[m_offset];
        if (c == '\n') {
            ++m_place.line;
            m_place.column = 1;
        } else if ((c & 0xC0) != 0x80) {
            ++m_place.column;
        }
    }
    return m_place;
}

}  // namespace vellora
