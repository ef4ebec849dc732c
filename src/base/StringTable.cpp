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
    {1125, u"File title can not contain these characters: / : * ? \" |"},
    {1126, u"Photo title must not exceed 100 chars."},
    {1127, u"Photo description must not exceed 1000 chars."},
    {3002, u"Double click to edit"},
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
    {3080, u"Flip X"},
    {3081, u"Flip Y"},
    {3082, u"Flip Horizonally"},
    {3083, u"Flip Vertically"},
    {3084, u"Rotate Left"},
    {3085, u"Rotate Right"},
    {3086, u"Rotate left by 90 degrees"},
    {3087, u"Rotate right by 90 degrees"},
    {3088, u"Rotate counterclockwise 90 degree"},
    {3089, u"Rotate clockwise 90 degree"},
    {3090, u"Previous photo"},
    {3091, u"Next photo"},
    {3092, u"Close"},
    {3093, u"Close Window"},
    {3094, u"Default"},
    {3095, u"1 second"},
    {3096, u"%d seconds"},
    {3097, u"Failed to save image."},
    {3098, u"Style %d"},
    {3099, u"Info"},
    {3100, u"Text"},
    {3101, u"ArtClip"},
    {3102, u"Crop&Filter"},
    {3103, u"Adjustments"},
    {3104, u"Art Effects"},
    {3105, u"Maximize"},
    {3106, u"Restore"},
    {3107, u"This photo cannot be shown. Its file is missing or damaged:"},
    {3108, u"No art clips found. They are expected in this folder:"},
    {3109, u"No text styles found. They are expected in this file:"},
    {3110, u"This file is not a picture that can be added."},
    {3111, u"Add an art clip"},
    {3112, u"Choose a color"},
    {3113, u"Font size in points"},
    {3114, u"Bold"},
    {3115, u"Italic"},
    {3116, u"Underline"},
    {3117, u"Preview of the photo"},
    {3118, u"Text styles"},
    {3119, u"Art clips"},
    {3120, u"Art clip styles"},
    {3121, u"Filters"},
    {3122, u"Textures"},
});

static_assert(std::ranges::is_sorted(kStrings, {}, &StringEntry::id));

}  // namespace

std::vector<std::int32_t> builtInStringIds() {
    std::vector<std::int32_t> ids;
    for (const StringEntry& entry : kStrings) {
        ids.push_back(entry.id);
    }
    return ids;
}

const char16_t* builtInString(std::int32_t id) {
    const auto* entry = std::ranges::lower_bound(kStrings, id, {}, &StringEntry::id);
    return entry != kStrings.end() && entry->id == id ? entry->text : u"";
}

}  // namespace vellora
