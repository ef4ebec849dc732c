#pragma once

/// @file
/// Plain types that every part of the interface shares.

#include <cstdint>

/// OpenCV's image header. Images of this interface are 8 bits per channel, three channels in
/// blue-green-red byte order, rows padded to 4 bytes, top row first.
struct _IplImage;
typedef struct _IplImage IplImage;

namespace vellora {

/// A colour with red in the low byte, green in the next and blue in the third (0x00BBGGRR).
using COLORREF = std::uint32_t;
using DWORD = std::uint32_t;

/// Status of the exported operations: `S_OK` or `E_FAIL`, no other values.
using STATUS = std::int32_t;
inline constexpr STATUS S_OK = 0;
inline constexpr STATUS E_FAIL = static_cast<STATUS>(0x80004005U);

/// The stage: the design space in which all sprite geometry is kept, and the limit of the preview.
inline constexpr int kStageWidth = 600;
inline constexpr int kStageHeight = 450;

/// Makes a colour from its three components, each 0 to 255.
constexpr COLORREF makeColorRef(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFFU) | ((green & 0xFFU) << 8U) | ((blue & 0xFFU) << 16U);
}

constexpr int redOf(COLORREF colour) {
    return static_cast<int>(colour & 0xFFU);
}
constexpr int greenOf(COLORREF colour) {
    return static_cast<int>((colour >> 8U) & 0xFFU);
}
constexpr int blueOf(COLORREF colour) {
    return static_cast<int>((colour >> 16U) & 0xFFU);
}

}  // namespace vellora
