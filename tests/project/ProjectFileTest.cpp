#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/model/DVDImageProps.h>

#include "support/ProjectFixture.h"
#include "support/ShortMemory.h"

namespace vellora {
namespace {

using test::ProjectDocument;

const std::string kHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";

/// A project file with the given photos.
std::string project(const std::string& photos, const std::string& album = {}) {
    return kHeader + "<ZEV_Photo_Info version=\"1.00\">" + album + photos + "</ZEV_Photo_Info>";
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::unique_ptr<COpencvFilterInterface> filterNamed(const char16_t* name) {
    return std::unique_ptr<COpencvFilterInterface>(CreateFilterByName(name));
}

const CDVDImageProps& propsOf(const CSpriteHolder& holder, int index) {
    return dynamic_cast<const CDVDImageProps&>(*holder.GetSprites().GetAt(index));
}

/// The chain of one photo after loading it from `Filter_Data` attributes.
const COpencvFilterInterface* loadedFilter(ProjectDocument& document,
                                           const std::string& attributes) {
    document.load(project("<Image_Data id='0' filter_count='1'><Filter_Data id='0' " + attributes +
                          "/></Image_Data>"));
    return document.processor(0).GetFilter(document.processor(0).GetFilterCount() - 1);
}

TEST(ProjectFile, AnEmptyProjectIsThreeElements) {
    ProjectDocument document;
    EXPECT_EQ(document.saved(), kHeader +
                                    "<ZEV_Photo_Info version=\"1.00\">\n"
                                    "    <Album_Data sprite_count=\"0\">\n"
                                    "    </Album_Data>\n"
                                    "</ZEV_Photo_Info>\n");
}

TEST(ProjectFile, WritesEveryElementInItsForm) {
    ProjectDocument document(1);
    document.record(0).rotation = 90;
    auto* clip = new CDVDImageProps(nullptr, "/clips/a & b.svg");
    clip->SetPosition(-5, 20);
    clip->SetSize(30, 40);
    document.photo(0).AddSprite(clip, false);
    document.album().AddSprite(new CDVDImageProps(nullptr), false);
    auto redEye = filterNamed(u"Red Eye Removal");
    *redEye->GetFactorOne() = 70;
    redEye->crop_step = 1;
    redEye->FlipX = true;
    redEye->Angle = 270;
    redEye->SetROI(0.25F, 0.1F, -1.0F, 0.0000004F);
    document.processor(0).AddFilterToChain(redEye.release());
    document.processor(0).AddFilterToChain(filterNamed(u"Contour").release());
    document.processor(0).AddFilterToChain(filterNamed(u"Grey").release());
    document.processor(0).AddCropRecord({1, -2, 300, 400, true, false, 180});
    EXPECT_EQ(document.saved(), kHeader +
                                    R"(<ZEV_Photo_Info version="1.00">
    <Album_Data sprite_count="1">
        <Sprite_Data id="0" type="props">
            <props x0="0" y0="0" cx="100" cy="40"/>
        </Sprite_Data>
    </Album_Data>
    <Image_Data id="0" angle="90" sprite_count="1" filter_count="3" crop_count="1">
        <File_Name>/photos/0.jpg</File_Name>
        <Sprite_Data id="0" type="props">
            <props x0="-5" y0="20" cx="30" cy="40">/clips/a &amp; b.svg</props>
        </Sprite_Data>
        <Filter_Data id="0" type="Red Eye Removal" factor_one="70" crop_step="1" FlipX="1" FlipY="0" Angle="270" roi_x="0.250000" roi_y="0.100000" roi_cx="-1.000000" roi_cy="0.000000">
        </Filter_Data>
        <Filter_Data id="1" type="Contour" factor_one="30" factor_two="300" factor_three="40" crop_step="0" FlipX="0" FlipY="0" Angle="0">
        </Filter_Data>
        <Filter_Data id="2" type="Grey" crop_step="0" FlipX="0" FlipY="0" Angle="0">
        </Filter_Data>
        <Crop_Data id="0" x="1" y="-2" cx="300" cy="400" flipx="1" flipy="0" angle="180">
        </Crop_Data>
    </Image_Data>
</ZEV_Photo_Info>
)");
}

TEST(ProjectFile, EveryFilterComesBackWithItsAttributes) {
    ProjectDocument document(1);
    std::int32_t number = -3;
    for (const COpencvFilterInterface* prototype : GetFilterPrototypes()) {
        std::unique_ptr<COpencvFilterInterface> filter(prototype->Clone());
        for (std::int32_t* factor :
             {filter->GetFactorOne(), filter->GetFactorTwo(), filter->GetFactorThree()}) {
            if (factor != nullptr) {
                *factor = number * 101;
            }
            ++number;
        }
        filter->crop_step = number;
        filter->FlipY = number % 2 == 0;
        filter->Angle = number * 90;
        filter->SetROI(0.5F, 0.125F, 0.1F, 1e30F);
        document.processor(0).AddFilterToChain(filter.release());
    }
    const std::string first = document.saved();
    ProjectDocument again(1);
    ASSERT_EQ(again.load(first), S_OK);
    ASSERT_EQ(again.processor(0).GetFilterCount(), static_cast<int>(GetFilterPrototypes().size()));
    EXPECT_EQ(again.saved(), first);
    const COpencvFilterInterface* redEye = again.processor(0).GetFilter(7);
    float region[4] = {};
    redEye->GetROI(&region[0], &region[1], &region[2], &region[3]);
    EXPECT_EQ(region[2], 0.1F);
    EXPECT_EQ(region[3], 1e30F);
}

TEST(ProjectFile, FlipsOfFiltersAreReadWithTheirAsymmetry) {
    ProjectDocument document(1);
    const auto flips = [&](const std::string& attributes) {
        const COpencvFilterInterface* filter = loadedFilter(document, "type='Grey' " + attributes);
        return std::pair(filter->FlipX, filter->FlipY);
    };
    EXPECT_EQ(flips("FlipX='1' FlipY='0'"), std::pair(false, false));
    EXPECT_EQ(flips("FlipX='1'"), std::pair(false, true));
    EXPECT_EQ(flips("FlipX='0' FlipY='7'"), std::pair(false, true));
    EXPECT_EQ(flips("FlipX='0'"), std::pair(false, false));
    EXPECT_EQ(flips("flipx='1' flipy='1'"), std::pair(false, false)) << "letter case counts";
}

TEST(ProjectFile, ReadsOnlyTheAttributesThatAreThere) {
    ProjectDocument document(1);
    const auto* filter = loadedFilter(document, "type='Contour'");
    auto* contour = const_cast<COpencvFilterInterface*>(filter);
    EXPECT_EQ(*contour->GetFactorTwo(), 300);
    EXPECT_EQ(filter->crop_step, 0);
    EXPECT_EQ(loadedFilter(document, "type='Grey' factor_one='5' crop_step='-1'")->crop_step, 0);
    filter = loadedFilter(document,
                          "type='Depth Dim' roi_x=' +0.5x' roi_y='1e999' roi_cx='nan' "
                          "roi_cy='-1e999'");
    float region[4] = {};
    filter->GetROI(&region[0], &region[1], &region[2], &region[3]);
    EXPECT_EQ(region[0], 0.5F);
    EXPECT_EQ(region[1], std::numeric_limits<float>::max());
    EXPECT_EQ(region[2], 0.0F);
    EXPECT_EQ(region[3], std::numeric_limits<float>::lowest());
    const int count = document.processor(0).GetFilterCount();
    loadedFilter(document, "type='grey'");
    loadedFilter(document, "type='Unknown'");
    loadedFilter(document, "");
    EXPECT_EQ(document.processor(0).GetFilterCount(), count) << "unknown filters are left out";
}

TEST(ProjectFile, ACropNeedsAllItsAttributes) {
    const QString whole = " x='1' y='2' cx='3' cy='4' flipx='5' flipy='0' angle='90'";
    ProjectDocument document(1);
    const auto load = [&](const QString& attributes) {
        document.load(project("<Image_Data id='0' crop_count='1'><Crop_Data id='0'" +
                              attributes.toStdString() + "/></Image_Data>"));
        return document.processor(0).GetCropCount();
    };
    for (const char* name : {" x=", " y=", " cx=", " cy=", " flipx=", " flipy=", " angle="}) {
        EXPECT_EQ(load(QString(whole).replace(name, " other=")), 0) << name;
    }
    EXPECT_EQ(load(QString(whole).replace("flipx", "FlipX")), 0);
    ASSERT_EQ(load(whole), 1);
    EXPECT_EQ(*document.processor(0).GetCrop(0), (CropRecord{1, 2, 3, 4, true, false, 90}));
}

TEST(ProjectFile, MatchesPhotosByPositionAndAppends) {
    ProjectDocument document(3);
    const std::string file = project(
        "<Image_Data id='1' sprite_count='1'><Sprite_Data id='0' type='PROPS'><props x0='7'>b"
        "</props></Sprite_Data></Image_Data>"
        "<Image_Data id='9' sprite_count='1'><Sprite_Data id='0' type='props'/></Image_Data>"
        "<Image_Data id='0' sprite_count='3'><Sprite_Data id='2' type='props'><props>c</props>"
        "</Sprite_Data><Sprite_Data id='1' type='movie'/><Sprite_Data id='0' type='props'/>"
        "<Sprite_Data id='3' type='props'/></Image_Data>",
        "<Album_Data sprite_count='1'><Sprite_Data id='0' type='props'><props>album</props>"
        "</Sprite_Data></Album_Data>");
    document.album().AddSprite(new CDVDImageProps(nullptr, "before"), false);
    document.record(0).changed = 0;
    ASSERT_EQ(document.load(file), S_OK);
    ASSERT_EQ(document.photo(0).GetSprites().GetSize(), 2);
    EXPECT_EQ(propsOf(document.photo(0), 0).GetFile(), "") << "a clip without its element";
    EXPECT_EQ(propsOf(document.photo(0), 1).GetFile(), "c");
    ASSERT_EQ(document.photo(1).GetSprites().GetSize(), 1);
    EXPECT_EQ(propsOf(document.photo(1), 0).GetPosition(), QPoint(7, 0));
    EXPECT_EQ(propsOf(document.photo(1), 0).GetSize(), QSize(100, 40));
    EXPECT_EQ(propsOf(document.photo(1), 0).GetOwner(), &document.photo(1));
    EXPECT_FALSE(propsOf(document.photo(1), 0).GetAlbumFlag());
    EXPECT_TRUE(document.photo(2).GetSprites().IsEmpty());
    EXPECT_EQ(document.record(0).changed, 1);
    EXPECT_EQ(document.record(2).changed, 0);
    ASSERT_EQ(document.album().GetSprites().GetSize(), 2);
    EXPECT_EQ(propsOf(document.album(), 1).GetFile(), "album");
    EXPECT_TRUE(propsOf(document.album(), 1).GetAlbumFlag());
    document.load(file);
    EXPECT_EQ(document.photo(0).GetSprites().GetSize(), 4) << "nothing is cleared before loading";
}

TEST(ProjectFile, CountsAreUpperBounds) {
    ProjectDocument document(1);
    document.load(
        project("<Image_Data id='0' sprite_count='2147483647' filter_count='2147483647' "
                "crop_count='-1'><Sprite_Data id='2147483646' type='props'/>"
                "<Sprite_Data id='1' type='props'/><Filter_Data id='4' type='Grey'/>"
                "<Crop_Data id='0' x='1' y='2' cx='3' cy='4' flipx='0' flipy='0' "
                "angle='0'/></Image_Data>"));
    EXPECT_EQ(document.photo(0).GetSprites().GetSize(), 2);
    EXPECT_EQ(document.processor(0).GetFilterCount(), 1);
    EXPECT_EQ(document.processor(0).GetCropCount(), 0);
    document.load(project("<Image_Data id='0'><Sprite_Data id='0' type='props'/></Image_Data>"));
    EXPECT_EQ(document.photo(0).GetSprites().GetSize(), 2) << "no count, no sprites";
}

TEST(ProjectFile, ANodeWithoutARecordTakesNoId) {
    ProjectDocument document(3);
    _HNODE_DATA* data = document.handle(1)->data;
    CDVDImage* image = std::exchange(data->image, nullptr);
    const std::string file = document.saved();
    EXPECT_TRUE(contains(file, "<Image_Data id=\"1\"")) << file;
    EXPECT_FALSE(contains(file, "<Image_Data id=\"2\""));
    EXPECT_TRUE(contains(file, "/photos/2.jpg"));
    document.load(
        project("<Image_Data id='1' filter_count='1'><Filter_Data id='0' type='Grey'/>"
                "</Image_Data>"));
    EXPECT_EQ(document.processor(2).GetFilterCount(), 1);
    data->image = image;
    EXPECT_EQ(document.processor(1).GetFilterCount(), 0);
}

TEST(ProjectFile, WhatIsNoProjectChangesNothing) {
    ProjectDocument document(1);
    document.photo(0).AddSprite(new CDVDImageProps(nullptr, "kept"), false);
    const std::string before = document.saved();
    const std::string good = project(
        "<Image_Data id='0' sprite_count='1'><Sprite_Data id='0' type='props'/></Image_Data>");
    const std::string opened = QByteArray("<a>").repeated(100'000).toStdString();
    const std::string closed = QByteArray("</a>").repeated(100'000).toStdString();
    for (const std::string& bad :
         {std::string(), good.substr(0, good.size() - 5), good + "<", "<other/>" + good, opened,
          opened + closed, std::string("\0\xFF", 2), "<ZEV_Photo_Info>" + opened + closed + good,
          std::string("<html><body>Image_Data</body></html>")}) {
        EXPECT_EQ(document.load(bad), S_OK) << bad.substr(0, 200);
        EXPECT_EQ(document.saved(), before);
    }
    EXPECT_EQ(document.object().LoadFromXMLFile("/no/such/file.xml"), S_OK);
    EXPECT_EQ(document.object().LoadFromXMLFile("/"), S_OK);
    EXPECT_EQ(document.object().LoadFromXMLFile(QString()), S_OK);
    EXPECT_EQ(document.saved(), before);
}

TEST(ProjectFile, AFailedSaveKeepsTheOldFile) {
    const QTemporaryDir folder;
    ProjectDocument document(1);
    EXPECT_EQ(document.object().SaveToXMLFile(folder.filePath("gone/a.xml")), E_FAIL);
    EXPECT_EQ(document.object().SaveToXMLFile(folder.path()), E_FAIL);
    EXPECT_EQ(document.object().SaveToXMLFile(QString()), E_FAIL);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_EQ(document.object().SaveToXMLFile(folder.filePath("a.xml")), S_OK);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("a.xml"));
}

TEST(ProjectFile, ASaveWithoutMemoryFailsAndTheNextOneDoesNot) {
    if (!test::ShortMemory::isPossible()) {
        GTEST_SKIP();
    }
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xml");
    ProjectDocument document(1);
    ASSERT_EQ(document.object().SaveToXMLFile(path), S_OK);
    const std::string before = test::bytesOf(path);
    for (int i = 0; i < 500; ++i) {
        document.photo(0).AddSprite(new CDVDImageProps(nullptr, "clip.svg"), false);
    }
    const std::string all = document.saved();
    for (std::size_t bytes = 2000; bytes < all.size(); bytes = bytes * 6 / 5) {
        {
            const test::ShortMemory memory(bytes);
            EXPECT_EQ(document.object().SaveToXMLFile(path), E_FAIL) << bytes;
        }
        EXPECT_EQ(test::bytesOf(path), before);
        EXPECT_EQ(document.saved(), all);
    }
}

TEST(ProjectFile, NamesOfAnyKindAreWritten) {
    ProjectDocument document(1);
    std::fill(std::begin(document.record(0).path), std::end(document.record(0).path), u'\u00E4');
    document.record(0).path[3] = 0xD800;
    document.record(0).path[4] = 0x01;
    document.photo(0).AddSprite(new CDVDImageProps(nullptr, u" \t\n\"'<>]]>\u0002\U0001F600 "_qs),
                                false);
    const std::string file = document.saved();
    EXPECT_TRUE(
        contains(file, "<File_Name>" + QString(508, QChar(0xE4)).toStdString() + "</File_Name>"));
    ProjectDocument again(1);
    again.load(file);
    EXPECT_EQ(propsOf(again.photo(0), 0).GetFile(), propsOf(document.photo(0), 0).GetFile());
}

}  // namespace
}  // namespace vellora
