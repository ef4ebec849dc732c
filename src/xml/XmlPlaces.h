#pragma once

#include <QByteArray>
#include <cstddef>

namespace vellora {

/// A place in a document; line and column, in characters, count from 1.
struct XmlPlace {
    int line = 1;
    int column = 1;
};

/// Tells the places of offsets in a UTF-8 document. Offsets that rise cost one walk through the
/// document in all.
class XmlPlaces {
public:
    explicit XmlPlaces(QByteArray document) : m_document(std::move(document)) {}

    XmlPlace of(std::ptrdiff_t offset);

private:
    QByteArray m_document;
    qsizetype m_offset = 0;
    XmlPlace m_place;
};

}  // namespace vellora
