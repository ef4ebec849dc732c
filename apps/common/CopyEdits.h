#pragma once

namespace vellora {
class CDVDAlbumImage;
class CDVDImage;
}  // namespace vellora

namespace vellora::hostkit {

/// Appends copies of all edits of one photo to those of another: crops, filters with the state
/// that is recorded with them, sprites.
void copyEdits(const CDVDImage& from, CDVDImage& to);

/// Appends copies of all sprites of one album to another.
void copyAlbum(const CDVDAlbumImage& from, CDVDAlbumImage& to);

}  // namespace vellora::hostkit
