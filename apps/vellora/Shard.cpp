#include "Shard.h"

#include <QStringList>

#include "Command.h"
#include "Console.h"
#include "Numbers.h"

namespace vellora::cli {

Shard toShard(const QString& text) {
    constexpr std::int32_t kMost = 1'000'000;
    const QString what = QStringLiteral("--shard");
    const QStringList parts = text.split(QLatin1Char('/'));
    if (parts.size() != 2) {
        throw UsageError(QStringLiteral("--shard: '%1' is not of the form I/N, such as 1/4")
                             .arg(printable(text)));
    }
    const std::int32_t count = toIntegerWithin(parts[1], 1, kMost, what);
    return {toIntegerWithin(parts[0], 1, count, what), count};
}

}  // namespace vellora::cli
