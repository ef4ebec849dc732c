#pragma once

#include <cstdint>

/// @file
/// Numbers by which language files refer to dialogs, controls, menus and strings. They are part
/// of the interface with translators: never renumber. A new string also needs its English text in
/// the string table and an entry in each file of assets/lang.

namespace vellora {

/// Dialog templates, by which a language file names its sections.
namespace dialog_id {
inline constexpr std::int32_t kArtClipPage = 301;
inline constexpr std::int32_t kTextPage = 302;
inline constexpr std::int32_t kTextBrush = 368;
inline constexpr std::int32_t kEditDialog = 3000;
inline constexpr std::int32_t kCropFilterPage = 3009;
inline constexpr std::int32_t kInfoPage = 5101;
}  // namespace dialog_id

/// Controls of the text brush dialog.
namespace brush_control {
inline constexpr std::int32_t kOk = 1;
inline constexpr std::int32_t kCancel = 2;
inline constexpr std::int32_t kSolid = 1401;
inline constexpr std::int32_t kGradient = 1402;
inline constexpr std::int32_t kTexture = 1403;
inline constexpr std::int32_t kFirstColour = 1404;
inline constexpr std::int32_t kSecondColour = 1405;
inline constexpr std::int32_t kTextureList = 1406;
}  // namespace brush_control

/// Controls that the crop-and-filter page adds: the switch above the filter list.
namespace filter_control {
inline constexpr std::int32_t kAdjustments = 3052;
inline constexpr std::int32_t kArtEffects = 3053;
}  // namespace filter_control

/// Strings by id, for `LanguageString`. The labels of filter parameters are with the filters.
namespace string_id {
inline constexpr std::int32_t kForbiddenTitleCharacters = 1125;
inline constexpr std::int32_t kTitleTooLong = 1126;
inline constexpr std::int32_t kDescriptionTooLong = 1127;
inline constexpr std::int32_t kDoubleClickToEdit = 3002;
inline constexpr std::int32_t kFlipX = 3080;
inline constexpr std::int32_t kFlipY = 3081;
inline constexpr std::int32_t kFlipHorizontally = 3082;
inline constexpr std::int32_t kFlipVertically = 3083;
inline constexpr std::int32_t kRotateLeft = 3084;
inline constexpr std::int32_t kRotateRight = 3085;
inline constexpr std::int32_t kRotateLeftBy90 = 3086;
inline constexpr std::int32_t kRotateRightBy90 = 3087;
inline constexpr std::int32_t kRotateCounterclockwise = 3088;
inline constexpr std::int32_t kRotateClockwise = 3089;
inline constexpr std::int32_t kPreviousPhoto = 3090;
inline constexpr std::int32_t kNextPhoto = 3091;
inline constexpr std::int32_t kClose = 3092;
inline constexpr std::int32_t kCloseWindow = 3093;
inline constexpr std::int32_t kDefaultDuration = 3094;
inline constexpr std::int32_t kOneSecond = 3095;
inline constexpr std::int32_t kSeconds = 3096;
inline constexpr std::int32_t kSaveFailed = 3097;
inline constexpr std::int32_t kStyleNumber = 3098;
inline constexpr std::int32_t kTabInfo = 3099;
inline constexpr std::int32_t kTabText = 3100;
inline constexpr std::int32_t kTabArtClip = 3101;
inline constexpr std::int32_t kTabCropFilter = 3102;
inline constexpr std::int32_t kAdjustments = 3103;
inline constexpr std::int32_t kArtEffects = 3104;
inline constexpr std::int32_t kMaximize = 3105;
inline constexpr std::int32_t kRestore = 3106;
inline constexpr std::int32_t kPhotoUnreadable = 3107;
inline constexpr std::int32_t kNoArtClips = 3108;
inline constexpr std::int32_t kNoTextStyles = 3109;
inline constexpr std::int32_t kNotAPicture = 3110;
inline constexpr std::int32_t kAddArtClip = 3111;
inline constexpr std::int32_t kChooseColour = 3112;
inline constexpr std::int32_t kFontSizeHint = 3113;
inline constexpr std::int32_t kBold = 3114;
inline constexpr std::int32_t kItalic = 3115;
inline constexpr std::int32_t kUnderline = 3116;
inline constexpr std::int32_t kCanvasName = 3117;
inline constexpr std::int32_t kTextStyles = 3118;
inline constexpr std::int32_t kArtClips = 3119;
inline constexpr std::int32_t kArtClipStyles = 3120;
inline constexpr std::int32_t kFilters = 3121;
inline constexpr std::int32_t kTextures = 3122;
}  // namespace string_id

}  // namespace vellora
