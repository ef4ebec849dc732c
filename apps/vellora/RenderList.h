#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vellora/project/ProjectContents.h>

#include "common/ShowFile.h"

namespace vellora::cli {

/// The edits of a project file, found by the position of their photo.
class ProjectEdits {
public:
    /// @return Null with the reason when the file cannot be read.
    static std::shared_ptr<ProjectEdits> read(const QString& file, QString* reason);

    /// The photos and clips that they name.
    [[nodiscard]] QStringList pictures() const;

    /// Gives a photo of a document its edits, and the document the album.
    void applyTo(CDVDImage& photo, CDVDAlbumImage& album, int position) const;

private:
    ProjectContents m_contents;
};

/// A photo to render, and what is known of it.
struct RenderItem {
    QString photo;
    /// Its fields, when a slideshow file lists it.
    std::optional<hostkit::ShowPhoto> fields;
    std::shared_ptr<const ProjectEdits> edits;  ///< May be null.
    int position = 0;                           ///< Among the photos that the edits belong to.
};

/// The photos that the user named, those of slideshow files among them.
struct RenderList {
    std::vector<RenderItem> items;
    /// Slideshow and project files: no result may replace them.
    QStringList files;
    /// The slideshow files among them, and the pictures that the edits show.
    QStringList sources;
    /// Whether something that the user named could not be read; it has been said.
    bool incomplete = false;

    [[nodiscard]] QStringList photos() const;

    /// @param arguments    Photos and slideshow files.
    /// @param projectFile  Edits for the photos, by position; empty for none.
    /// @throws UsageError for a project file that cannot be read.
    static RenderList read(const std::vector<std::string>& arguments, const QString& projectFile);

private:
    void addPhoto(const QString& photo, const std::shared_ptr<const ProjectEdits>& edits);
    void addShow(const QString& file);
};

}  // namespace vellora::cli
