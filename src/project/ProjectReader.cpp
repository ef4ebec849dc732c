#include "project/ProjectReader.h"

#include <limits>
#include <map>
#include <memory>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>
#include <vellora/project/ProjectContents.h>

#include "project/FilterRecord.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

/// A new sprite of the type, with the name of the element that describes it.
struct NewSprite {
    std::unique_ptr<CDVDImageSprite> sprite;
    QString element;
};

NewSprite makeSprite(const XmlNode& node, const QString& baseFolder) {
    const char* type = node.RawAttribute("type");
    if (qstricmp(type, "text") == 0) {
        return {std::make_unique<CDVDImageText>(nullptr, baseFolder), QStringLiteral("text")};
    }
    if (qstricmp(type, "props") == 0) {
        return {std::make_unique<CDVDImageProps>(nullptr), QStringLiteral("props")};
    }
    return {};
}

std::int32_t countIn(const XmlNode& node, const char* name) {
    std::int32_t count = 0;
    node.GetIntAttribute(name, count);
    return count;
}

/// The project's element: the outermost one, or wherever a foreign file has put it.
std::vector<XmlNode> projectRoots(const CXMLParse& reader) {
    if (const XmlNode outermost = reader.Select(QStringLiteral("ZEV_Photo_Info"))) {
        return {outermost};
    }
    return reader.SelectAll(QStringLiteral("//ZEV_Photo_Info"));
}

class Loader {
public:
    Loader(CXMLParse& reader, const QString& baseFolder)
        : m_reader(reader), m_baseFolder(baseFolder), m_roots(projectRoots(reader)) {}

    void loadAlbum(CDVDAlbumImage& album) {
        const std::vector<XmlNode> albums = childrenNamed("Album_Data");
        if (albums.empty()) {
            return;
        }
        const std::int32_t count = countIn(albums.front(), "sprite_count");
        for (const auto& [id, sprite] : numberedChildren(albums, "Sprite_Data", count)) {
            loadSprite(sprite, album, true);
        }
    }

    /// The elements of all photos by their id.
    [[nodiscard]] std::map<std::int32_t, std::vector<XmlNode>> photos(std::int32_t count) const {
        return groupedById(childrenNamed("Image_Data"), count);
    }

    /// @param nodes  The photo's elements: one, unless a file numbers several alike.
    void loadPhoto(const std::vector<XmlNode>& nodes, CDVDImage& photo) {
        const XmlNode& first = nodes.front();
        bool loaded = false;
        for (const auto& [id, node] :
             numberedChildren(nodes, "Sprite_Data", countIn(first, "sprite_count"))) {
            loaded |= loadSprite(node, photo, false);
        }
        CPhotoProcessor& processor = *photo.GetProcessor();
        for (const auto& [id, node] :
             numberedChildren(nodes, "Filter_Data", countIn(first, "filter_count"))) {
            if (auto filter = loadFilter(node)) {
                processor.AddFilterToChain(filter.release());
                loaded = true;
            }
        }
        for (const auto& [id, node] :
             numberedChildren(nodes, "Crop_Data", countIn(first, "crop_count"))) {
            if (CropRecord crop; loadCrop(node, crop)) {
                processor.AddCropRecord(crop);
                loaded = true;
            }
        }
        if (loaded) {
            photo.MarkChanged();
        }
    }

private:
    bool loadSprite(const XmlNode& node, CSpriteHolder& holder, bool isAlbum) {
        auto [sprite, element] = makeSprite(node, m_baseFolder);
        if (sprite == nullptr) {
            return false;
        }
        m_reader.SetContext(node);
        sprite->Load(m_reader, element);
        m_reader.SetContext({});
        sprite->SetAlbumFlag(isAlbum);
        holder.AddSprite(sprite.get(), false);
        sprite.release();
        return true;
    }

    [[nodiscard]] std::vector<XmlNode> childrenNamed(const char* name) const {
        std::vector<XmlNode> children;
        for (const XmlNode& root : m_roots) {
            for (XmlNode child = root.Child(name); child; child = child.NextSibling(name)) {
                children.push_back(child);
            }
        }
        return children;
    }

    CXMLParse& m_reader;
    QString m_baseFolder;
    std::vector<XmlNode> m_roots;
};

}  // namespace

QString loadProject(const QString& path, const QString& baseFolder, CDVDAlbumImage& album,
                    const std::vector<CDVDImage*>& photos) {
    CXMLParse reader;
    if (reader.Open(path) == 0) {
        return reader.Error().Text();
    }
    Loader loader(reader, baseFolder);
    loader.loadAlbum(album);
    for (const auto& [id, nodes] : loader.photos(static_cast<std::int32_t>(photos.size()))) {
        loader.loadPhoto(nodes, *photos[static_cast<std::size_t>(id)]);
    }
    return {};
}

bool ReadProject(const QString& path, const QString& baseFolder, ProjectContents* contents,
                 QString* reason) {
    CXMLParse reader;
    if (reader.Open(path) == 0) {
        if (reason != nullptr) {
            *reason = reader.Error().Text();
        }
        return false;
    }
    Loader loader(reader, baseFolder);
    contents->album = std::make_unique<CDVDAlbumImage>();
    loader.loadAlbum(*contents->album);
    contents->photos.clear();
    for (const auto& [id, nodes] : loader.photos(std::numeric_limits<std::int32_t>::max())) {
        ProjectPhoto photo{id, nodes.front().Child("File_Name").Text(), 0,
                           std::make_unique<CDVDImage>()};
        nodes.front().GetIntAttribute("angle", photo.angle);
        loader.loadPhoto(nodes, *photo.edits);
        contents->photos.push_back(std::move(photo));
    }
    return true;
}

}  // namespace vellora
