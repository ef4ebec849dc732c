#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace vellora::cli {

// Strict readers of numbers. `what` names the argument in the message of the `UsageError` that
// each throws for anything but exactly what it asks for.

std::int32_t toInteger(const QString& text, const QString& what);
std::int32_t toIntegerWithin(const QString& text, std::int32_t least, std::int32_t most,
                             const QString& what);
float toFraction(const QString& text, const QString& what);

/// Integers separated by commas, at least and at most so many.
std::vector<std::int32_t> toIntegers(const QString& text, int least, int most, const QString& what);

/// "WxH", each at least 1 and at most what a JPEG file holds.
QSize toPictureSize(const QString& text, const QString& what);

/// "RRGGBB" as a colour with red in the low byte.
std::uint32_t toColour(const QString& text, const QString& what);

}  // namespace vellora::cli
