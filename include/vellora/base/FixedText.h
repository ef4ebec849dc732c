#pragma once

/// @file
/// UTF-16 texts in fields of fixed size, as the records of this interface hold them.

#include <QString>
#include <algorithm>
#include <cstddef>

namespace vellora {

/// The text of a fixed field: up to its terminator, or the whole field when it has none.
template <std::size_t N>
QString fixedText(const char16_t (&field)[N]) {
    const char16_t* end = std::find(field, field + N, u'\0');
    return QString::fromUtf16(field, end - field);
}

/// Stores a text in a fixed field and zero-fills the rest. A text that does not fit beside its
/// terminator is cut, never inside a surrogate pair.
template <std::size_t N>
void setFixedText(char16_t (&field)[N], QStringView text) {
    auto length = std::min(text.size(), static_cast<qsizetype>(N - 1));
    if (length > 0 && length < text.size() && text[length - 1].isHighSurrogate()) {
        --length;
    }
    char16_t* end = std::copy_n(text.utf16(), length, field);
    std::fill(end, field + N, u'\0');
}

}  // namespace vellora
