#include "project/ProjectReader.h"

#include <memory>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "project/FilterRecord.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

/// A new sprite of the type, with the name of the element that describes it.
struct NewSprite {
    std::unique_ptr<CDVDImageSprite> sprite;
    QString element;
};

NewSprite makeSprite(const QString& type, const QString& baseFolder) {
    for (const QString& element : {QStringLiteral("text"), QStringLiteral("props")}) {
        if (type.compare(element, Qt::CaseInsensitive) != 0) {
            continue;
        }
        if (element == u"text") {
            return {std::make_unique<CDVDImageText>(nullptr, baseFolder), element};
        }
        return {std::make_unique<CDVDImageProps>(nullptr), element};
    }
    return {};
}

std::int32_t countIn(const XmlNode& node, const char* name) {
    std::int32_t count = 0;
    node.GetIntAttribute(name, count);
    return count;
}

class Loader {
public:
    Loader(CXMLParse& reader, const QString& baseFolder)
        : m_reader(reader), m_baseFolder(baseFolder) {}

    void loadAlbum(CDVDAlbumImage& album) {
        const XmlNode node = m_reader.Select(QStringLiteral("//ZEV_Photo_Info/Album_Data"));
        const std::vector<XmlNode> sprites =
            m_reader.SelectAll(QStringLiteral("//ZEV_Photo_Info/Album_Data/Sprite_Data"));
        for (const auto& [id, sprite] : numberedNodes(sprites, countIn(node, "sprite_count"))) {
            loadSprite(sprite, album, true);
        }
    }

    void loadPhotos(const std::vector<CDVDImage*>& photos) {
        const auto records =
            groupedById(m_reader.SelectAll(QStringLiteral("//ZEV_Photo_Info/Image_Data")),
                        static_cast<std::int32_t>(photos.size()));
        for (const auto& [id, nodes] : records) {
            loadPhoto(nodes, *photos[static_cast<std::size_t>(id)]);
        }
    }

private:
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

    bool loadSprite(const XmlNode& node, CSpriteHolder& holder, bool isAlbum) {
        auto [sprite, element] = makeSprite(node.Attribute("type"), m_baseFolder);
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

    CXMLParse& m_reader;
    QString m_baseFolder;
};

}  // namespace

void loadProject(const QString& path, const QString& baseFolder, CDVDAlbumImage& album,
                 const std::vector<CDVDImage*>& photos) {
    CXMLParse reader;
    if (reader.Open(path) == 0) {
        return;
    }
    Loader loader(reader, baseFolder);
    loader.loadAlbum(album);
    loader.loadPhotos(photos);
}

}  // namespace vellora
