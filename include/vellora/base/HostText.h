#pragma once

/// @file
/// Texts in the fixed UTF-16 fields of the host record.

#include <QString>
#include <algorithm>
#include <cstddef>

namespace vellora {

/// The text of a host record's field: up to its terminator, or the whole field when it has none.
template <std::size_t Capacity>
QString hostText(const char16_t (&field)[Capacity]) {
    const auto* end = std::find(field, field + Capacity, u'\0');
    return QString(reinterpret_cast<const QChar*>(field), end - field);
}

/// Writes a text with its terminator into a host record's field, cut to what fits. A surrogate
/// pair is never split.
template <std::size_t Capacity>
void setHostText(char16_t (&field)[Capacity], const QString& text) {
    auto length = std::min(static_cast<std::size_t>(text.size()), Capacity - 1);
    if (length > 0 && length < static_cast<std::size_t>(text.size()) &&
        text.at(static_cast<qsizetype>(length) - 1).isHighSurrogate()) {
        --length;
    }
    std::copy_n(text.utf16(), length, field);
    std::fill(field + length, field + Capacity, u'\0');
}

}  // namespace vellora
