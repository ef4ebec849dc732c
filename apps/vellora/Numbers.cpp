#include "Numbers.h"

#include <QRegularExpression>

#include <vellora/base/Types.h>

#include "Command.h"
#include "Console.h"

namespace vellora::cli {
namespace {

constexpr std::int32_t kLongestSide = 65500;
constexpr std::int64_t kMostPixels = 200'000'000;

[[noreturn]] void refuse(const QString& what, const QString& text, const QString& wanted) {
    throw UsageError(QStringLiteral("%1: '%2' is not %3").arg(what, printable(text), wanted));
}

}  // namespace

std::int32_t toInteger(const QString& text, const QString& what) {
    bool good = false;
    const std::int32_t value = text.toInt(&good);
    // toInt() takes blanks around a number.
    if (!good || text.front().isSpace() || text.back().isSpace()) {
        refuse(what, text, QStringLiteral("an integer"));
    }
    return value;
}

std::int32_t toIntegerWithin(const QString& text, std::int32_t least, std::int32_t most,
                             const QString& what) {
    const std::int32_t value = toInteger(text, what);
    if (value < least || value > most) {
        refuse(what, text, QStringLiteral("within %1..%2").arg(least).arg(most));
    }
    return value;
}

float toFraction(const QString& text, const QString& what) {
    bool good = false;
    const float value = text.toFloat(&good);
    if (!good || text.front().isSpace() || text.back().isSpace() || !(value >= 0) || value > 1) {
        refuse(what, text, QStringLiteral("a fraction from 0 to 1"));
    }
    return value;
}

std::vector<std::int32_t> toIntegers(const QString& text, int least, int most,
                                     const QString& what) {
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != least && parts.size() != most) {
        refuse(what, text,
               least == most
                   ? QStringLiteral("%1 numbers separated by commas").arg(least)
                   : QStringLiteral("%1 or %2 numbers separated by commas").arg(least).arg(most));
    }
    std::vector<std::int32_t> values;
    for (const QString& part : parts) {
        values.push_back(toInteger(part, what));
    }
    return values;
}

QSize toPictureSize(const QString& text, const QString& what) {
    const QStringList parts = text.split(QLatin1Char('x'));
    if (parts.size() != 2) {
        refuse(what, text, QStringLiteral("a size such as 1200x900"));
    }
    const QSize size(toIntegerWithin(parts[0], 1, kLongestSide, what),
                     toIntegerWithin(parts[1], 1, kLongestSide, what));
    if (std::int64_t{size.width()} * size.height() > kMostPixels) {
        refuse(what, text, QStringLiteral("a size of at most 200 million pixels"));
    }
    return size;
}

std::uint32_t toColour(const QString& text, const QString& what) {
    static const QRegularExpression kForm(QStringLiteral("\\A#?([0-9A-Fa-f]{6})\\z"));
    const QRegularExpressionMatch match = kForm.match(text);
    if (!match.hasMatch()) {
        refuse(what, text, QStringLiteral("a colour of six hexadecimal digits RRGGBB"));
    }
    const std::uint32_t rgb = match.captured(1).toUInt(nullptr, 16);
    return makeColorRef(rgb >> 16U, rgb >> 8U, rgb);
}

}  // namespace vellora::cli
