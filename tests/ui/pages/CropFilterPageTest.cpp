#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <algorithm>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImage.h>

#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/dialog/DialogFixture.h"

namespace vellora {
namespace {

/// The photos are 4:3 and fill the stage.
class CropFilterPageTest : public test::DialogFixture {
protected:
    void SetUp() override {
        open();
        showTab(6);
    }
    QListWidget& list() { return control<QListWidget>(3037); }
    QSlider& slider(int id) { return control<QSlider>(id); }
    bool canSave() { return control<QPushButton>(3025).isEnabled(); }
    bool canRestore() { return control<QPushButton>(3045).isEnabled(); }
    CPhotoProcessor& processor() { return *image(0).GetProcessor(); }

    void choose(const QString& filter) {
        QListWidgetItem* item = list().findItems(filter, Qt::MatchExactly).value(0);
        ASSERT_NE(item, nullptr);
        list().scrollToItem(item);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(item).center());
    }
    void chooseRadio(int id) { click(control<QRadioButton>(id)); }
};

TEST_F(CropFilterPageTest, AllFiltersCanBeReached) {
    const auto prototypes = GetFilterPrototypes();
    const auto effects = std::ranges::count(prototypes, 1, &COpencvFilterInterface::is_art_effect);
    EXPECT_EQ(list().count(), static_cast<int>(prototypes.size()) - effects);
    EXPECT_EQ(list().item(0)->text(), QStringLiteral("None"));
    EXPECT_EQ(list().item(8)->text(), QStringLiteral("Rotate"));
    click(control<QPushButton>(3053));
    EXPECT_EQ(list().count(), effects + 1) << "None and the art effects";
    EXPECT_EQ(list().item(0)->text(), QStringLiteral("None"));
    EXPECT_EQ(list().currentRow(), 0);
    choose(QStringLiteral("Contour"));
    EXPECT_TRUE(canSave());
    for (int row = 0; row < list().count(); ++row) {
        EXPECT_FALSE(list().item(row)->icon().isNull());
    }
}

TEST_F(CropFilterPageTest, ThumbnailsShowTheFilter) {
    click(control<QPushButton>(3053));
    const auto colour = [this](const QString& name) {
        const QListWidgetItem* item = list().findItems(name, Qt::MatchExactly).first();
        return item->icon().pixmap(89, 89).toImage().pixelColor(44, 44);
    };
    const QColor plain = colour(QStringLiteral("None"));
    const QColor inverse = colour(QStringLiteral("Inverse"));
    EXPECT_EQ(inverse.red(), 255 - plain.red());
    EXPECT_EQ(inverse.green(), 255 - plain.green());
    EXPECT_EQ(inverse.blue(), 255 - plain.blue());
}

TEST_F(CropFilterPageTest, SlidersFollowTheFilter) {
    EXPECT_FALSE(slider(3039).isVisible());
    choose(QStringLiteral("Brightness Contrast"));
    EXPECT_TRUE(slider(3039).isVisible());
    EXPECT_EQ(slider(3039).minimum(), -200);
    EXPECT_EQ(slider(3039).maximum(), 200);
    EXPECT_EQ(control<QLabel>(3042).text(), QStringLiteral("Brightness:"));
    EXPECT_TRUE(slider(3040).isVisible());
    EXPECT_FALSE(slider(3041).isVisible());
    EXPECT_FALSE(control<QLabel>(3044).isVisible());
}

TEST_F(CropFilterPageTest, ASliderChangesThePreviewAndRestarts) {
    choose(QStringLiteral("Brightness Contrast"));
    const QImage before = canvas().grab().toImage();
    slider(3039).setFocus();
    QTest::keyClick(&slider(3039), Qt::Key_PageUp);
    EXPECT_EQ(slider(3039).value(), 40);
    EXPECT_EQ(*processor().GetCurrentFilter()->GetFactorOne(), 40);
    EXPECT_NE(canvas().grab().toImage(), before);
    EXPECT_EQ(processor().GetFilterCount(), 0);
    choose(QStringLiteral("None"));
    choose(QStringLiteral("Brightness Contrast"));
    EXPECT_EQ(slider(3039).value(), 0);
    EXPECT_EQ(*processor().GetCurrentFilter()->GetFactorOne(), 0);
}

TEST_F(CropFilterPageTest, SaveCommitsFilterAndCrop) {
    photo(0).changed = 0;
    EXPECT_FALSE(canSave());
    choose(QStringLiteral("Grey"));
    chooseRadio(3034);
    EXPECT_EQ(canvas().GetCropFrame(), (Rect{0, 56, 600, 393}));
    click(control<QPushButton>(3025));
    ASSERT_EQ(processor().GetFilterCount(), 1);
    ASSERT_EQ(processor().GetCropCount(), 1);
    EXPECT_EQ(*processor().GetCrop(0), (CropRecord{0, 56, 600, 337, false, false, 0}));
    EXPECT_EQ(processor().GetHeight(), 337);
    EXPECT_EQ(photo(0).changed, 1);
    EXPECT_FALSE(canSave());
    EXPECT_TRUE(canRestore());
    EXPECT_TRUE(control<QRadioButton>(3032).isChecked());
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_TRUE(canvas().GetCropFrame().isEmpty());
    click(control<QPushButton>(3045));
    EXPECT_EQ(processor().GetCropCount(), 0);
    EXPECT_EQ(processor().GetFilterCount(), 0);
    EXPECT_EQ(processor().GetHeight(), 450);
    EXPECT_FALSE(canSave());
    EXPECT_FALSE(canRestore());
}

/// Applies to anything but cannot be recorded, as when memory runs out.
class Unclonable : public COpencvFilterInterface {
public:
    bool Apply(IplImage** /*image*/) override { return true; }
    [[nodiscard]] COpencvFilterInterface* Clone() const override { return nullptr; }
    [[nodiscard]] const char16_t* GetName() const override { return u"Unclonable"; }
};

TEST_F(CropFilterPageTest, AFailureIsToldAndCountsAsAChange) {
    Unclonable filter;
    chooseRadio(3035);
    processor().SetCurrentFilter(&filter);
    photo(0).changed = 0;
    click(control<QPushButton>(3025));
    EXPECT_EQ(errors, QStringList{QStringLiteral("Failed to save image.")});
    EXPECT_EQ(photo(0).changed, 1);
    EXPECT_TRUE(canSave());
    EXPECT_TRUE(control<QRadioButton>(3035).isChecked());
    EXPECT_EQ(canvas().GetCropFrame(), (Rect{0, 0, 600, 450}));
    EXPECT_EQ(processor().GetCropCount(), 0);
}

TEST_F(CropFilterPageTest, AFrameBeyondThePhotoIsHarmless) {
    chooseRadio(3034);
    drag(canvas(), {0, 56}, {300, 100});
    drag(canvas(), {450, 300}, {150, 357});
    ASSERT_EQ(canvas().GetCropFrame().left, 0);
    drag(canvas(), {300, canvas().GetCropFrame().bottom - 1}, {600, 400});
    ASSERT_GT(canvas().GetCropFrame().bottom, 450);
    click(control<QPushButton>(3025));
    EXPECT_GT(processor().GetHeight(), 0);
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(CropFilterPageTest, TheSameModeTwiceKeepsAMovedFrame) {
    chooseRadio(3033);
    drag(canvas(), {0, 0}, {120, 50});
    EXPECT_EQ(canvas().GetCropFrame(), (Rect{120, 90, 600, 450}));
    chooseRadio(3033);
    EXPECT_EQ(canvas().GetCropFrame(), (Rect{120, 90, 600, 450}));
    chooseRadio(3035);
    EXPECT_EQ(canvas().GetCropFrame(), (Rect{0, 0, 600, 450}));
}

TEST_F(CropFilterPageTest, EscapeDropsTheFrame) {
    chooseRadio(3035);
    EXPECT_TRUE(canSave());
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    EXPECT_TRUE(control<QRadioButton>(3032).isChecked());
    EXPECT_TRUE(canvas().GetCropFrame().isEmpty());
    EXPECT_FALSE(canSave());
    chooseRadio(3033);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_TRUE(canvas().GetCropFrame().isEmpty());
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(CropFilterPageTest, ItemZeroAndNoChangeDisableSave) {
    choose(QStringLiteral("Grey"));
    EXPECT_TRUE(canSave());
    EXPECT_TRUE(canRestore());
    choose(QStringLiteral("None"));
    EXPECT_FALSE(canSave());
    chooseRadio(3033);
    EXPECT_TRUE(canSave());
    chooseRadio(3032);
    EXPECT_FALSE(canSave());
}

TEST_F(CropFilterPageTest, FlipsAndOtherPhotosReset) {
    choose(QStringLiteral("Grey"));
    chooseRadio(3033);
    clickTool(ToolCommand::FlipX);
    EXPECT_TRUE(control<QRadioButton>(3032).isChecked());
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_TRUE(canvas().GetCropFrame().isEmpty());
    choose(QStringLiteral("Grey"));
    clickTool(ToolCommand::Next);
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_FALSE(canSave());
    EXPECT_EQ(processor().GetFilterCount(), 0);
}

}  // namespace
}  // namespace vellora
