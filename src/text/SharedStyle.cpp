#include "text/SharedStyle.h"

#include <array>
#include <cstring>
#include <mutex>
#include <type_traits>

namespace vellora {
namespace {

static_assert(std::has_unique_object_representations_v<TextStyle>);

bool isSame(const TextStyle& a, const TextStyle& b) {
    return std::memcmp(&a, &b, sizeof(TextStyle)) == 0;
}

/// The styles that were asked for last; more looks than these are rare in one show, and only cost
/// memory.
struct RecentStyles {
    std::mutex lock;
    std::array<std::weak_ptr<const TextStyle>, 16> styles;
    std::size_t next = 0;
};

RecentStyles& recentStyles() {
    static RecentStyles recent;
    return recent;
}

}  // namespace

std::shared_ptr<const TextStyle> defaultStyle() {
    static const auto style = std::make_shared<const TextStyle>();
    return style;
}

std::shared_ptr<const TextStyle> sharedStyle(const TextStyle& style) {
    RecentStyles& recent = recentStyles();
    const std::scoped_lock guard(recent.lock);
    for (const auto& weak : recent.styles) {
        if (auto known = weak.lock(); known != nullptr && isSame(*known, style)) {
            return known;
        }
    }
    // Not made in one block with its counters: the record is freed with its last sprite.
    std::shared_ptr<const TextStyle> made(new TextStyle(style));
    recent.styles[recent.next] = made;
    recent.next = (recent.next + 1) % recent.styles.size();
    return made;
}

}  // namespace vellora
