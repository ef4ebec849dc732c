#include <QDir>
#include <QSettings>

#include <gtest/gtest.h>

#include "metafile/MetafilePicture.h"

namespace vellora {
namespace {

TEST(ClipLibrary, EveryStyleHoldsClipsThatLoad) {
    const QDir root(QStringLiteral(VELLORA_ASSETS_DIR "/ArtClip"));
    QSettings list(root.filePath(QStringLiteral("artclip.ini")), QSettings::IniFormat);
    const int styles = list.value(QStringLiteral("Base/StyleCount")).toInt();
    EXPECT_GE(styles, 5);
    int clips = 0;
    int enhanced = 0;
    qint64 bytes = 0;
    for (int style = 1; style <= styles; ++style) {
        const QString section = QStringLiteral("Style%1/").arg(style);
        EXPECT_FALSE(list.value(section + QStringLiteral("Name")).toString().isEmpty());
        const QDir folder(root.filePath(list.value(section + QStringLiteral("Path")).toString()));
        for (const QFileInfo& file : folder.entryInfoList(QDir::Files)) {
            const auto picture = MetafilePicture::fromFile(file.filePath());
            ASSERT_NE(picture, nullptr) << file.filePath().toStdString();
            ++clips;
            enhanced += picture->format() == MetafilePicture::Format::Emf ? 1 : 0;
            bytes += file.size();
        }
    }
    EXPECT_GE(clips, 40);
    EXPECT_EQ(2 * enhanced, clips);
    EXPECT_LT(bytes, 2 << 20);
}

}  // namespace
}  // namespace vellora
