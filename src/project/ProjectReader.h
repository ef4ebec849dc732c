#pragma once

#include <QString>
#include <vector>

namespace vellora {

class CDVDAlbumImage;
class CDVDImage;

/// Reads a project file into the album and the photos, which are matched by their position.
///
/// What the file holds is appended to what is there. Whatever is unknown or incomplete is left
/// out; a file that is no XML document changes nothing. The counts in the file are upper bounds:
/// the work depends on what the file really holds.
///
/// @param baseFolder  The text-effect base folder, handed to text sprites.
/// @return Why the file cannot be read; empty when it can.
QString loadProject(const QString& path, const QString& baseFolder, CDVDAlbumImage& album,
                    const std::vector<CDVDImage*>& photos);

}  // namespace vellora
