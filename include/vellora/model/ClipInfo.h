#pragma once

/// @file
/// What an art clip file holds, and pictures of it.

#include <QImage>
#include <QSizeF>
#include <QString>
#include <cstdint>
#include <vector>

#include <vellora/base/Export.h>

namespace vellora {

/// How often a metafile holds one kind of record.
struct ClipRecordCount {
    QString name;
    std::int64_t count = 0;
};

/// What an art clip file says of itself.
struct ClipInfo {
    /// "WMF", "WMF placeable", "EMF", "SVG", or the name of a raster format; empty for a file that
    /// cannot be loaded.
    QString format;
    /// The size that the file gives itself, in pixels at 96 dots an inch.
    QSizeF naturalSize;
    /// Of metafiles, most frequent first; empty for other files.
    std::vector<ClipRecordCount> records;
    std::int64_t recordTotal = 0;
};

/// Reads what a clip says of itself.
///
/// @param path  The clip's file.
/// @param info  Takes the result; unchanged for a file that cannot be loaded.
/// @param reason  Where given, says why a file cannot be loaded.
/// @return Whether the file can be loaded.
VELLORA_EXPORT bool ReadClipInfo(const QString& path, ClipInfo* info, QString* reason = nullptr);

/// Draws a clip by itself. Needs a `QGuiApplication` for the letters in it.
///
/// @param path  The clip's file.
/// @param longestSide  Of the result, in pixels, 1 to 16,384; the other side follows from the
///     clip's own proportions and is at least 1.
/// @param reason  Where given, says why there is no result.
/// @return A picture with premultiplied alpha, transparent where the clip paints nothing; null for
///     a file that cannot be loaded and for a size outside the range.
VELLORA_EXPORT QImage RenderClip(const QString& path, int longestSide, QString* reason = nullptr);

}  // namespace vellora
