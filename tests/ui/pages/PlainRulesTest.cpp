// What the pages decide, without their widgets.

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vellora/filters/FilterCatalogue.h>

#include "ui/behaviour/ClipPlacement.h"
#include "ui/controls/UserPrompts.h"
#include "ui/pages/ArtClipLibrary.h"
#include "ui/pages/CommitButtons.h"
#include "ui/pages/InfoTexts.h"
#include "ui/pages/SliderSetup.h"
#include "ui/pages/TextControls.h"
#include "ui/pages/TextMacroMenu.h"

namespace vellora {
namespace {

TEST(InfoTextsTest, TitlesLoseForbiddenCharactersThenTheirEnd) {
    EXPECT_EQ(checkTitle(QStringLiteral("a/b")).text, QStringLiteral("ab"));
    const CheckedText all = checkTitle(QStringLiteral("/a\\b:c*d?e\"f|g/"));
    EXPECT_EQ(all.text, QStringLiteral("abcdefg"));
    EXPECT_TRUE(all.removedCharacters);
    EXPECT_FALSE(all.shortened);
    EXPECT_FALSE(checkTitle(QString(100, u'x')).shortened);
    const CheckedText both = checkTitle(QString(101, u'x') + u'/');
    EXPECT_EQ(both.text.size(), 100);
    EXPECT_TRUE(both.removedCharacters);
    EXPECT_TRUE(both.shortened);
}

TEST(InfoTextsTest, NoHalfCharacterIsLeft) {
    const QString emoji = QString::fromUtf8("\xF0\x9F\x98\x80");
    EXPECT_EQ(checkTitle(QString(99, u'x') + emoji).text, QString(99, u'x'));
    EXPECT_EQ(checkTitle(QString(98, u'x') + emoji).text, QString(98, u'x') + emoji);
    EXPECT_EQ(checkDescription(QString(999, u'x') + emoji).text.size(), 999);
    EXPECT_FALSE(checkDescription(QString(1000, u'x')).shortened);
    EXPECT_TRUE(checkDescription(QString(1001, u'x')).shortened);
}

TEST(SliderSetupTest, ParametersRestartAtTheirAdvertisedValues) {
    const std::unique_ptr<COpencvFilterInterface> rain(CreateFilterByName(u"Rain"));
    EXPECT_EQ(*rain->GetFactorTwo(), 730);
    const FilterSliders sliders = setUpSliders(*rain);
    for (const FilterSlider& slider : sliders) {
        EXPECT_TRUE(slider.offered);
    }
    EXPECT_EQ(sliders[1].minimum, 1);
    EXPECT_EQ(sliders[1].maximum, 100);
    EXPECT_EQ(sliders[1].value, 30);
    EXPECT_EQ(sliders[1].labelId, 3071);
    EXPECT_EQ(*rain->GetFactorTwo(), 30);
    EXPECT_EQ(*rain->GetFactorThree(), 5000);
    EXPECT_EQ(sliders[2].cell, rain->GetFactorThree());
}

TEST(SliderSetupTest, ASliderNeedsTheOneBefore) {
    const std::unique_ptr<COpencvFilterInterface> filter(CreateFilterByName(u"HSL"));
    const std::array descriptors{FilterParamDesc{10, 0, 5, 3020}, FilterParamDesc{0, 0, 0, 0},
                                 FilterParamDesc{9, 1, 4, 3022}};
    filter->param_descs = descriptors.data();
    *filter->GetFactorThree() = 77;
    const FilterSliders sliders = setUpSliders(*filter);
    EXPECT_TRUE(sliders[0].offered);
    EXPECT_FALSE(sliders[1].offered);
    EXPECT_FALSE(sliders[2].offered);
    EXPECT_EQ(*filter->GetFactorThree(), 77);
    const std::unique_ptr<COpencvFilterInterface> grey(CreateFilterByName(u"Grey"));
    EXPECT_FALSE(setUpSliders(*grey)[0].offered);
}

TEST(CommitButtonsTest, FollowFilterAndCrop) {
    CommitButtons buttons;
    buttons.photoChanged(false);
    EXPECT_FALSE(buttons.canSave());
    buttons.filterSelected(3, kCropNone);
    EXPECT_TRUE(buttons.canSave());
    EXPECT_TRUE(buttons.canRestore());
    buttons.filterSelected(0, kCropManual);
    EXPECT_TRUE(buttons.canSave());
    buttons.filterSelected(0, kCropNone);
    EXPECT_FALSE(buttons.canSave());
    buttons.cropModeChosen(kCropFourToThree, 0);
    EXPECT_TRUE(buttons.canSave());
    buttons.cropModeChosen(kCropNone, -1);
    EXPECT_TRUE(buttons.canSave());
    buttons.cropModeChosen(kCropNone, 0);
    EXPECT_FALSE(buttons.canSave());
    buttons.restored();
    EXPECT_FALSE(buttons.canRestore());
    buttons.saved();
    EXPECT_FALSE(buttons.canSave());
    EXPECT_TRUE(buttons.canRestore());
}

class ArtClipLibraryTest : public testing::Test {
protected:
    void write(const QString& name, const QByteArray& text) {
        const QString path = m_folder.filePath(QStringLiteral("ArtClip/") + name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QTemporaryDir m_folder;
};

TEST_F(ArtClipLibraryTest, StylesNeedNameAndPath) {
    write(QStringLiteral("artclip.ini"),
          "[Base]\nStyleCount=3\n[Style1]\nName=Stars\nPath=stars\n[Style2]\nName=None\n"
          "[Style3]\nName=Frames\nPath=old\\frames\n[Style4]\nName=Beyond\nPath=x\n");
    const auto styles = readArtClipStyles(m_folder.path());
    ASSERT_EQ(styles.size(), 2U);
    EXPECT_EQ(styles[0].name, QStringLiteral("Stars"));
    EXPECT_EQ(styles[1].path, QStringLiteral("old\\frames"));
    write(QStringLiteral("old/frames/z.wmf"), "");
    EXPECT_EQ(listArtClips(m_folder.path(), styles[1]).size(), 1);
}

TEST_F(ArtClipLibraryTest, ACountIsOnlyABound) {
    write(QStringLiteral("artclip.ini"),
          "[Base]\nStyleCount=2147483647\n[Style900000000]\nName=Far\nPath=far\n");
    EXPECT_EQ(readArtClipStyles(m_folder.path()).size(), 1U);
    EXPECT_TRUE(readArtClipStyles(QStringLiteral("/nowhere")).empty());
}

TEST_F(ArtClipLibraryTest, OnlyMetafilesAreListed) {
    for (const char* name : {"s/a.wmf", "s/b.EMF", "s/c.png", "s/emf", "s/d.wmf.bak"}) {
        write(QString::fromLatin1(name), "");
    }
    write(QStringLiteral("s/folder.wmf/inner"), "");
    const QStringList clips =
        listArtClips(m_folder.path(), {QStringLiteral("S"), QStringLiteral("s")});
    ASSERT_EQ(clips.size(), 2);
    EXPECT_TRUE(clips[0].endsWith(QStringLiteral("/ArtClip/s/a.wmf")));
    EXPECT_TRUE(clips[1].endsWith(QStringLiteral("b.EMF")));
}

TEST_F(ArtClipLibraryTest, AcceptsNineExtensions) {
    for (const char* name :
         {"a.bmp", "a.JPG", "a.pcx", "a.tif", "a.png", "a.emf", "a.WMF", "a.jpeg", "a.tiff"}) {
        EXPECT_TRUE(isClipFile(QString::fromLatin1(name))) << name;
    }
    EXPECT_FALSE(isClipFile(QStringLiteral("a.gif")));
    EXPECT_FALSE(isClipFile(QStringLiteral("png")));
    const QString filter = fileDialogFilter(QString::fromUtf16(kArtClipFileFilter));
    EXPECT_TRUE(filter.startsWith(QStringLiteral(
        "All Supported Formats (*.jpg *.jpeg *.TIFF *.BMP *.PCX *.PNG *.wmf *.emf);;JPEG (*.jpg")));
    EXPECT_TRUE(filter.endsWith(QStringLiteral(";;emf (*.emf)")));
}

TEST(TextControlsTest, OnlyWhatChangedIsTouched) {
    TextStyle style;
    style.size = 5000;  // beyond what the control shows
    const TextControls shown = controlsOf(style);
    TextControls changed = shown;
    changed.bold = true;
    applyControls(style, shown, changed);
    EXPECT_EQ(style.size, 5000);
    EXPECT_EQ(style.shadow, 1);
    EXPECT_EQ(style.bold, 1);
    EXPECT_EQ(style.effect.bold, 1);
    changed.shadow = true;
    TextControls before = changed;
    before.shadow = false;
    applyControls(style, before, changed);
    EXPECT_EQ(style.effect.shadow, 1);
    EXPECT_EQ(style.effect.shadow_offset, style.shadow_x);
    EXPECT_EQ(style.effect.shadow_angle, 45);
}

TEST(TextControlsTest, AnEffectKeepsFontAndSize) {
    TextStyle style;
    style.SetFont(QStringLiteral("DejaVu Sans"));
    style.size = 31;
    TextEffectRecord effect;
    effect.SetFontName(QStringLiteral("Other"));
    effect.font_size = 60;
    effect.italic = 1;
    effect.face = TextBrushSettings::Solid(0x00FF00);
    applyEffect(style, effect);
    EXPECT_EQ(style.effect.GetFontName(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(style.effect.font_size, 31);
    EXPECT_EQ(style.italic, 1);
    EXPECT_EQ(style.colour, 0x00FF00U);
    EXPECT_TRUE(hasEffect(style, effect));
    effect.halo = 1;
    EXPECT_FALSE(hasEffect(style, effect));
}

TEST(TextMacroMenuTest, CommandsNameTheirMacros) {
    EXPECT_EQ(macroOfCommand(32823), 0);
    EXPECT_EQ(macroOfCommand(32772), 4);
    EXPECT_EQ(macroOfCommand(32828), 6);
    EXPECT_EQ(macroOfCommand(32829), 7);
    EXPECT_EQ(macroOfCommand(32831), 9);
    EXPECT_FALSE(macroOfCommand(32832).has_value());
}

}  // namespace
}  // namespace vellora
