#pragma once

#include <QString>

namespace vellora::cli {

/// One of several equal parts of a run, each rendered by a process of its own. The parts take
/// turns, so that a stretch of large photos is shared out.
struct Shard {
    int index = 1;  ///< From 1 to `count`.
    int count = 1;

    [[nodiscard]] bool holds(qsizetype photo) const { return photo % count == index - 1; }
};

/// "I/N".
/// @throws UsageError when it is not that.
Shard toShard(const QString& text);

}  // namespace vellora::cli
