#pragma once

/// @file
/// The host's per-photo record.

#include <cstddef>
#include <cstdint>

#include <vellora/base/Types.h>

namespace vellora {

/// The host's record of one photo.
///
/// The host allocates, fills and frees it; the module keeps a pointer to it and reads and writes
/// the named fields. The byte offsets are part of the interface. All texts are UTF-16; a text that
/// fills its field needs no terminator. The `host` fields belong to the host: the module never
/// touches them. A zero-filled record is valid.
struct _PHOTO_LIST_NODE {
    char16_t path[510];     ///< Full path of the photo file.
    std::int32_t rotation;  ///< Final rotation in degrees: 0, 90, 180 or 270.
    std::int32_t flip_x;    ///< 1 = mirrored left to right.
    std::int32_t flip_y;    ///< 1 = mirrored upside down.
    std::uint8_t host1[4];
    char16_t title[101];          ///< At most 100 characters.
    char16_t description[1001];   ///< At most 1000 characters.
    char16_t link[256];           ///< At most 255 characters.
    std::int32_t changed;         ///< Set to 1 by the module whenever it changes the photo's edits.
    std::int32_t first_duration;  ///< Seconds; values below 1 read as 2.
    std::int32_t second_duration;  ///< Seconds; values below 1 read as 2.
    std::uint8_t host2[16];
    COLORREF background;  ///< Colour around the photo.
    std::uint8_t host3[4];
    std::int32_t carried;           ///< Carried through unchanged by the information page.
    std::int32_t suppress_sprites;  ///< Non-zero: the finished picture shows no sprites.
    std::int32_t output_width;      ///< Written by `CImageObj::SaveNodeToFile` in mode 100.
    std::int32_t output_height;     ///< Written by `CImageObj::SaveNodeToFile` in mode 100.
};

static_assert(offsetof(_PHOTO_LIST_NODE, path) == 0);
static_assert(offsetof(_PHOTO_LIST_NODE, rotation) == 1020);
static_assert(offsetof(_PHOTO_LIST_NODE, flip_x) == 1024);
static_assert(offsetof(_PHOTO_LIST_NODE, flip_y) == 1028);
static_assert(offsetof(_PHOTO_LIST_NODE, title) == 1036);
static_assert(offsetof(_PHOTO_LIST_NODE, description) == 1238);
static_assert(offsetof(_PHOTO_LIST_NODE, link) == 3240);
static_assert(offsetof(_PHOTO_LIST_NODE, changed) == 3752);
static_assert(offsetof(_PHOTO_LIST_NODE, first_duration) == 3756);
static_assert(offsetof(_PHOTO_LIST_NODE, second_duration) == 3760);
static_assert(offsetof(_PHOTO_LIST_NODE, background) == 3780);
static_assert(offsetof(_PHOTO_LIST_NODE, carried) == 3788);
static_assert(offsetof(_PHOTO_LIST_NODE, suppress_sprites) == 3792);
static_assert(offsetof(_PHOTO_LIST_NODE, output_width) == 3796);
static_assert(offsetof(_PHOTO_LIST_NODE, output_height) == 3800);
static_assert(sizeof(_PHOTO_LIST_NODE) == 3804);

}  // namespace vellora
