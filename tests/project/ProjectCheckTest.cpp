#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vellora/model/DVDImageProps.h>
#include <vellora/project/ProjectCheck.h>
#include <vellora/project/ProjectContents.h>

#include "support/ProjectFixture.h"

namespace vellora {
namespace {

class ProjectCheckTest : public testing::Test {
protected:
    std::string write(const QByteArray& xml) {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(xml);
        return {};
    }

    /// The findings as "line:column message", one a line.
    std::string found(const QByteArray& xml) {
        write(xml);
        const ProjectReport report = CheckProject(m_path, m_folder.path());
        m_readable = report.readable;
        QString lines;
        for (const ProjectFinding& finding : report.findings) {
            lines += QStringLiteral("%1:%2 %3\n")
                         .arg(finding.line)
                         .arg(finding.column)
                         .arg(finding.message);
        }
        return lines.replace(m_folder.path(), "DIR").toStdString();
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath("project.xml");
    bool m_readable = false;
};

TEST_F(ProjectCheckTest, ACleanProjectHasNoFindings) {
    QImage clip(4, 3, QImage::Format_RGB32);
    clip.fill(Qt::red);
    ASSERT_TRUE(clip.save(m_folder.filePath("clip.png")));
    test::ProjectDocument document(1);
    document.photo(0).AddSprite(new CDVDImageProps(nullptr, m_folder.filePath("clip.png")), false);
    document.processor(0).AddCropRecord({0, 0, 5, 5, false, false, 0});
    EXPECT_EQ(found(QByteArray::fromStdString(document.saved())), "");
    EXPECT_TRUE(m_readable);
}

TEST_F(ProjectCheckTest, NamesEachFaultWithItsPlace) {
    EXPECT_EQ(
        found("<?xml version='1.0'?>\n"
              "<ZEV_Photo_Info>\n"
              " <Album_Data sprite_count='x'/>\n"
              " <Image_Data id='0' sprite_count='5' filter_count='3' crop_count='2'>\n"
              "  <Sprite_Data id='0' type='movie'/><Sprite_Data id='1' type='props'/>\n"
              "  <Sprite_Data id='1' type='props'/><Sprite_Data id='9' type='props'/>\n"
              "  <Sprite_Data type='props'/>\n"
              "  <Sprite_Data id='2' type='props'><props x0='1' y0='q' cx='3' cy='4'>/no.svg"
              "</props></Sprite_Data>\n"
              "  <Filter_Data id='0' type='Blur'/>\n"
              "  <Filter_Data id='1' type='Gauss Smooth' factor_one='11' crop_step='-1' "
              "FlipX='0' FlipY='0' Angle='0'/>\n"
              "  <Filter_Data id='2' type='Depth Dim' crop_step='0' FlipX='0' FlipY='0' "
              "Angle='0' roi_x='0' roi_y='.25' roi_cx='0'/>\n"
              "  <Crop_Data id='0' x='0' y='0' cx='0' cy='4' flipx='0' flipy='0' angle='0'/>\n"
              "  <Crop_Data id='1' x='0' y='0' cx='3' cy='4' flipx='0' flipy='0'/>\n"
              "  <Extra/>\n"
              " </Image_Data>\n"
              " <Image_Data id='0' sprite_count='0' filter_count='0' crop_count='0'/>\n"
              "</ZEV_Photo_Info>\n"),
        "3:2 sprite_count \"x\" is no number\n"
        "4:2 sprite_count is 5, but 3 are there\n"
        "5:3 unknown sprite type \"movie\"\n"
        "5:37 has no element props\n"
        "6:3 id 1 comes twice, the element is not read\n"
        "6:37 id 9 is not below sprite_count 5, the element is not read\n"
        "7:3 id is missing or no number, the element is not read\n"
        "8:36 y0 \"q\" is no number\n"
        "8:36 art clip /no.svg is missing\n"
        "9:3 unknown filter \"Blur\"\n"
        "10:3 factor_one of Gauss Smooth is 11, its range is 0 to 10\n"
        "10:3 crop_step is negative\n"
        "11:3 roi_cy is missing\n"
        "12:3 the rectangle is empty, nothing is cut\n"
        "13:3 angle is missing\n"
        "14:3 unknown element Extra\n"
        "16:2 id 0 comes twice\n");
    EXPECT_TRUE(m_readable);
}

TEST_F(ProjectCheckTest, LooksIntoTexts) {
    ASSERT_TRUE(QDir(m_folder.path()).mkpath("texteffect/texture"));
    QFile broken(m_folder.filePath("texteffect/texture/broken.png"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.close();
    const auto write = [&](const char* name, const QByteArray& bytes) {
        QFile file(m_folder.filePath(QLatin1String("texteffect/texture/") + QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    write("huge.png", "P6 20000 20000 255\n");
    write("drawing.png", "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'/>");
    const QByteArray head =
        "<ZEV_Photo_Info><Album_Data sprite_count='1'><Sprite_Data id='0' type='text'>\n"
        "<text x0='1' y0='1' font='Arial' color='0x1' size='9' bold='0' italic='0' underline='0' "
        "align='0' shadow='0' s_color='0' so_x='0' so_y='0'>T";
    const QByteArray tail = "</text></Sprite_Data></Album_Data></ZEV_Photo_Info>";
    EXPECT_EQ(found(head + tail), "2:1 text_effect is missing\n");
    EXPECT_EQ(found(head +
                    "\n<text_effect font_name='A' halo='TRUE' border='true'>\n"
                    "<face style='texture'><file name='../x.png'/></face>\n"
                    "<border style='dots'/></text_effect>" +
                    tail),
              "3:1 font_size is missing\n"
              "3:1 halo is on but missing\n"
              "4:23 texture ../x.png lies outside the folder of textures\n"
              "5:1 size is missing\n"
              "5:1 unknown brush style \"dots\"\n");
    EXPECT_EQ(found(head +
                    "<text_effect font_name='A' font_size='7' shadow='true'>\n"
                    "<face style='texture'><file name='broken.png'/></face>\n"
                    "<shadow offset='1' angle='45' style='gradient'><color color1='0x1' "
                    "color2='no'/></shadow></text_effect>" +
                    tail),
              "3:23 texture DIR/texteffect/texture/broken.png is no picture\n"
              "4:48 color2 \"no\" is no number\n"
              "4:48 angle is missing\n");
    EXPECT_EQ(found(head +
                    "<text_effect font_name='A' font_size='7' border='true'>\n"
                    "<face style='texture'><file name='huge.png'/></face>\n"
                    "<border size='1' style='texture'><file name='drawing.png'/></border>"
                    "</text_effect>" +
                    tail),
              "3:23 texture DIR/texteffect/texture/huge.png is too large\n"
              "4:34 texture DIR/texteffect/texture/drawing.png is no picture\n");
}

TEST_F(ProjectCheckTest, SaysWhyAFileIsNoProject) {
    EXPECT_EQ(found("<ZEV_Photo_Info>\n <Album_Data></ZEV_Photo_Info>"),
              "2:16 Start-end tags mismatch\n");
    EXPECT_FALSE(m_readable);
    EXPECT_EQ(found("<html/>"), "1:1 No project file: there is no ZEV_Photo_Info\n");
    EXPECT_FALSE(m_readable);
    const ProjectReport report = CheckProject(m_folder.filePath("none.xml"), ".");
    EXPECT_FALSE(report.readable);
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_EQ(report.findings[0].line, 0);
    EXPECT_FALSE(report.findings[0].message.isEmpty());
}

TEST_F(ProjectCheckTest, StopsAfterAThousandFindings) {
    write("<ZEV_Photo_Info>" + QByteArray("<x/>").repeated(200'000) + "</ZEV_Photo_Info>");
    const ProjectReport report = CheckProject(m_path, ".");
    ASSERT_EQ(report.findings.size(), 1000U);
    EXPECT_EQ(report.findings.back().message, "and more");
}

TEST_F(ProjectCheckTest, ContentsAreReadWithoutPhotos) {
    write(
        "<ZEV_Photo_Info><Album_Data sprite_count='1'><Sprite_Data id='0' type='props'/>"
        "</Album_Data><Image_Data id='2000000000' angle='90' filter_count='1'>"
        "<File_Name>/p/b.jpg</File_Name><Filter_Data id='0' type='Grey'/></Image_Data>"
        "<Image_Data id='4'/></ZEV_Photo_Info>");
    ProjectContents contents;
    QString reason;
    ASSERT_TRUE(ReadProject(m_path, ".", &contents, &reason));
    EXPECT_EQ(contents.album->GetSprites().GetSize(), 1);
    ASSERT_EQ(contents.photos.size(), 2U);
    EXPECT_EQ(contents.photos[0].id, 4);
    EXPECT_EQ(contents.photos[1].fileName, "/p/b.jpg");
    EXPECT_EQ(contents.photos[1].angle, 90);
    EXPECT_EQ(contents.photos[1].edits->GetProcessor()->GetFilterCount(), 1);
    write("<a>\n</b>");
    EXPECT_FALSE(ReadProject(m_path, ".", &contents, &reason));
    EXPECT_EQ(reason, "line 2, column 3: Start-end tags mismatch");
}

}  // namespace
}  // namespace vellora
