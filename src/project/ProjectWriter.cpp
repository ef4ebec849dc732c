#include "project/ProjectWriter.h"

#include <vellora/base/HostText.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageSprite.h>

#include "base/SafeFile.h"
#include "base/XmlText.h"
#include "project/FilterRecord.h"
#include "xml/LORXMLNodeWrite.h"

namespace vellora {
namespace {

constexpr int kRecordDepth = 1;
constexpr int kPartDepth = 2;
constexpr int kSpriteDepth = 3;

/// The writer's target for one save.
class TargetScope {
public:
    explicit TargetScope(SafeFile& file) { SetXMLTarget(&file); }
    ~TargetScope() { SetXMLTarget(nullptr); }
    TargetScope(const TargetScope&) = delete;
    TargetScope& operator=(const TargetScope&) = delete;
};

void saveSprites(const CDVDImageSpriteArray& sprites) {
    int id = 0;
    for (const CDVDImageSprite* sprite : sprites) {
        CLORXMLNodeWrite element(kPartDepth, u"Sprite_Data");
        element.AddAttribute(u"id", id++);
        element.AddAttribute(u"type", sprite->GetKind() == kTextSprite ? u"text" : u"props");
        element.Flush();
        sprite->Save(kSpriteDepth);
    }
}

void saveAlbum(const CDVDAlbumImage& album) {
    CLORXMLNodeWrite element(kRecordDepth, u"Album_Data");
    element.AddAttribute(u"sprite_count", album.GetSprites().GetSize());
    element.Flush();
    saveSprites(album.GetSprites());
}

void saveFileName(const CDVDImage& photo) {
    CLORXMLNodeWrite element(kPartDepth, u"File_Name", true);
    if (photo.GetNode() != nullptr) {
        element.SetText(xmlText(hostText(photo.GetNode()->path)));
    }
    element.Flush();
}

void savePhoto(CDVDImage& photo, int id) {
    photo.SyncAngleFromNode();
    const CPhotoProcessor& processor = *photo.GetProcessor();
    CLORXMLNodeWrite element(kRecordDepth, u"Image_Data");
    element.AddAttribute(u"id", id);
    element.AddAttribute(u"angle", photo.GetAngle());
    element.AddAttribute(u"sprite_count", photo.GetSprites().GetSize());
    element.AddAttribute(u"filter_count", processor.GetFilterCount());
    element.AddAttribute(u"crop_count", processor.GetCropCount());
    element.Flush();
    saveFileName(photo);
    saveSprites(photo.GetSprites());
    for (int i = 0; i < processor.GetFilterCount(); ++i) {
        saveFilter(*processor.GetFilter(i), i, kPartDepth);
    }
    for (int i = 0; i < processor.GetCropCount(); ++i) {
        saveCrop(*processor.GetCrop(i), i, kPartDepth);
    }
}

void buildDocument(const CDVDAlbumImage& album, const std::vector<CDVDImage*>& photos) {
    WriteXMLHeader();
    CLORXMLNodeWrite root(0, u"ZEV_Photo_Info");
    root.AddAttribute(u"version", u"1.00");
    root.Flush();
    saveAlbum(album);
    int id = 0;
    for (CDVDImage* photo : photos) {
        savePhoto(*photo, id++);
    }
}

}  // namespace

bool saveProject(const QString& path, const CDVDAlbumImage& album,
                 const std::vector<CDVDImage*>& photos) {
    SafeFile file(path);
    if (!file.Open() || BeginXMLDocument() == 0) {
        return false;
    }
    buildDocument(album, photos);
    const TargetScope target(file);
    return WriteXMLBuffer() != 0 && file.Commit();
}

}  // namespace vellora
