#include "base/XmlText.h"

namespace vellora {
namespace {

/// Length of the character at `i` in UTF-16 units, or 0 for one that XML cannot hold.
qsizetype validLength(QStringView text, qsizetype i) {
    const char16_t c = text[i].unicode();
    if (c < 0x20) {
        return c == u'\t' || c == u'\n' || c == u'\r' ? 1 : 0;
    }
    if (c < 0xD800) {
        return 1;
    }
    if (QChar::isHighSurrogate(c)) {
        return i + 1 < text.size() && text[i + 1].isLowSurrogate() ? 2 : 0;
    }
    return QChar::isLowSurrogate(c) || c >= 0xFFFE ? 0 : 1;
}

qsizetype firstInvalid(QStringView text) {
    qsizetype i = 0;
    while (i < text.size()) {
        const qsizetype length = validLength(text, i);
        if (length == 0) {
            return i;
        }
        i += length;
    }
    return text.size();
}

}  // namespace

QString xmlText(QString text) {
    qsizetype i = firstInvalid(text);
    if (i == text.size()) {
        return text;
    }
    QString result = text.first(i);
    while (i < text.size()) {
        const qsizetype length = validLength(text, i);
        result += QStringView(text).sliced(i, length);
        i += length == 0 ? 1 : length;
    }
    return result;
}

}  // namespace vellora
