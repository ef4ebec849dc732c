#pragma once

/// @file
/// Reading a project file by itself, without the photos it belongs to.

#include <QString>
#include <memory>
#include <vector>

#include <vellora/base/Export.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>

namespace vellora {

/// The edits of one photo in a project file.
struct ProjectPhoto {
    int id = 0;        ///< The photo's position in the slideshow.
    QString fileName;  ///< The photo's path when the project was saved; informational.
    int angle = 0;     ///< The photo's rotation when the project was saved; informational.
    std::unique_ptr<CDVDImage> edits;  ///< Not bound to a photo.
};

/// What a project file holds.
struct ProjectContents {
    std::unique_ptr<CDVDAlbumImage> album;
    std::vector<ProjectPhoto> photos;  ///< By rising id.
};

/// Reads a project file as `CImageObj::LoadFromXMLFile` does.
///
/// @param baseFolder  The text-effect base folder, handed to text sprites.
/// @param contents    Receives the result; not null.
/// @param reason      Where given, receives why the file cannot be read.
/// @return False when the file is missing or no XML document.
VELLORA_EXPORT bool ReadProject(const QString& path, const QString& baseFolder,
                                ProjectContents* contents, QString* reason = nullptr);

}  // namespace vellora
