#pragma once

/// @file
/// What a host wants to know of a photo file before it makes a node for it.

#include <cstdint>

#include <vellora/base/Export.h>

class QString;

namespace vellora {

/// A photo as its file describes it; nothing is decoded to learn it.
struct PhotoInfo {
    int width = 0;   ///< Pixels, as the picture is stored.
    int height = 0;  ///< Pixels, as the picture is stored.

    /// The orientation tag, 1 to 8; 1 when the file has none.
    int orientation = 1;
    /// What the orientation tag asks for, in the terms of the host record: these three values in
    /// the record's fields show the photo upright.
    std::int32_t rotation = 0;
    std::int32_t flip_x = 0;
    std::int32_t flip_y = 0;

    /// The size of the upright, unedited picture at preview size.
    int previewWidth = 0;
    int previewHeight = 0;
    /// The size at which the stage shows it: crop rectangles are given in these pixels. Smaller
    /// than the preview where a turned preview is higher than the stage.
    int stageWidth = 0;
    int stageHeight = 0;
    /// The canvas of `GetOutImg` for the upright, unedited picture at full size.
    int canvasWidth = 0;
    int canvasHeight = 0;
};

/// Reads size and orientation of a photo file.
///
/// @param info    Receives the result; not null.
/// @param reason  Where given, receives the reason of a failure: an English phrase that goes behind
///                "FILE: ", or what the host's translators make of it in the context "vellora".
/// @return False when the file is no picture that the module decodes.
VELLORA_EXPORT bool ReadPhotoInfo(const QString& path, PhotoInfo* info, QString* reason = nullptr);

/// Whether a JPEG file asks for more scans than the module reads, which is ten times what encoders
/// write. A host that lets another decoder loose on such a file may wait for it very long. Reads
/// the file once. Any thread.
VELLORA_EXPORT bool HasExcessiveScans(const QString& path);

}  // namespace vellora
