#include "base/StringTable.h"

#include <algorithm>
#include <array>

namespace vellora {
namespace {

struct StringEntry {
    std::int32_t id;
    const char16_t* text;
};

// Sorted by id. Language files refer to these ids: never renumber.
constexpr std::array kStrings = std::to_array<StringEntry>({
    {3020, u"Red:"},
    {3021, u"Green:"},
    {3022, u"Blue:"},
    {3023, u"Brightness:"},
    {3024, u"Contrast:"},
    {3025, u"Hue:"},
    {3026, u"Saturation:"},
    {3027, u"Lightness:"},
    {3028, u"Shadow Depth:"},
    {3029, u"Amount:"},
    {3030, u"Range:"},
    {3057, u"Threshold:"},
    {3058, u"Rotate Angle:"},
    {3059, u"Kernel Size"},
    {3060, u"Threshold"},
    {3062, u"Number of Big Flakes"},
    {3063, u"Number of Middle Flakes"},
    {3064, u"Number of Small Flakes"},
    {3065, u"Stroke Size"},
    {3066, u"Pen Hardness"},
    {3069, u"Grain"},
    {3070, u"Minimum length of rain"},
    {3071, u"Maximum length of rain"},
    {3072, u"Number of rain drops"},
    {3073, u"Wave Length"},
    {3074, u"Wave Height"},
    {3075, u"Refraction Rate"},
    {3076, u"Water Size"},
    {3077, u"Mist Density"},
});

static_assert(std::ranges::is_sorted(kStrings, {}, &StringEntry::id));

}  // namespace

const char16_t* builtInString(std::int32_t id) {
    const auto* entry = std::ranges::lower_bound(kStrings, id, {}, &StringEntry::id);
    return entry != kStrings.end() && entry->id == id ? entry->text : u"";
}

}  // namespace vellora
