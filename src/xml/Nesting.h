#pragma once

#include <QByteArrayView>

namespace pugi {
class xml_document;
}

namespace vellora {

/// How deep the elements of a readable document may be nested.
inline constexpr int kMaxXmlDepth = 256;

/// Whether a UTF-8 document, before it is parsed, surely nests no deeper. True for whatever the
/// module writes; false also where telling would take a parser.
bool surelyNestsWithinLimit(QByteArrayView document);

/// Whether a parsed document nests deeper.
bool nestsTooDeep(const pugi::xml_document& document);

}  // namespace vellora
