#pragma once

#include <QString>
#include <vector>

namespace vellora {

class CDVDAlbumImage;
class CDVDImage;

/// Writes the album's sprites and the edits of the photos, numbered in their order, to a project
/// file. The old file is replaced only by a complete new one.
/// @return False when the file could not be written; the old one is then as it was.
bool saveProject(const QString& path, const CDVDAlbumImage& album,
                 const std::vector<CDVDImage*>& photos);

}  // namespace vellora
