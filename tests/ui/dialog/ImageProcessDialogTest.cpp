#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "support/TestPhotos.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/dialog/DialogFixture.h"
#include "ui/dialog/ImageProcessDialog.h"
#include "ui/pages/PhotoCropFilter.h"
#include "ui/pages/PhotoEditOperPropsPage.h"
#include "ui/pages/PhotoEditOperTextPage.h"
#include "ui/pages/PhotoInfoEditPage.h"

namespace vellora {
namespace {

using Indices = std::vector<int>;

class ImageProcessDialogTest : public test::DialogFixture {
protected:
    int tab() { return control<QTabBar>(3337).currentIndex(); }
    template <class Page>
    bool shows() {
        return dialog().findChild<Page*>()->isVisible();
    }
    /// The picture on the canvas at a stage position.
    QColor pixel(int x, int y) { return canvas().grab().toImage().pixelColor(x, y); }
};

TEST_F(ImageProcessDialogTest, FlipsTogglePhotoAndRecord) {
    open();
    const QColor before = pixel(40, 200);
    photo(0).changed = 0;
    clickTool(ToolCommand::FlipX);
    EXPECT_EQ(photo(0).flip_x, 1);
    EXPECT_EQ(photo(0).changed, 1);
    EXPECT_NE(pixel(40, 200), before);
    EXPECT_EQ(pixel(559, 200), before);
    clickTool(ToolCommand::FlipX);
    EXPECT_EQ(photo(0).flip_x, 0);
    EXPECT_EQ(pixel(40, 200), before);
    clickTool(ToolCommand::FlipY);
    EXPECT_EQ(photo(0).flip_y, 1);
    EXPECT_EQ(posted(), (Indices{0, 0, 0}));
}

TEST_F(ImageProcessDialogTest, RotationStaysAQuarterTurn) {
    open(1);
    clickTool(ToolCommand::RotateLeft);
    EXPECT_EQ(photo(1).rotation, 270);
    EXPECT_EQ(image(1).GetProcessor()->GetWidth(), 450);
    clickTool(ToolCommand::RotateRight);
    EXPECT_EQ(photo(1).rotation, 0);
    for (const int expected : {90, 180, 270, 0}) {
        control<QPushButton>(3011).click();
        EXPECT_EQ(photo(1).rotation, expected);
    }
    control<QPushButton>(3010).click();
    EXPECT_EQ(photo(1).rotation, 270);
    EXPECT_EQ(posted(), (Indices{1, 1, 1, 1, 1, 1, 1}));
}

TEST_F(ImageProcessDialogTest, EditsTakeTheBackgroundColourAgain) {
    open();
    photo(0).background = 0x0000FF00;
    clickTool(ToolCommand::FlipX);
    EXPECT_EQ(image(0).GetBackgroundColor(), 0x0000FF00U);
}

TEST_F(ImageProcessDialogTest, NavigationTellsOfThePhotoThatIsLeft) {
    open();
    for (int index = 0; index < 3; ++index) {
        photo(index).changed = 0;
    }
    control<QPushButton>(3008).click();
    EXPECT_EQ(dialog().GetCurrentIndex(), 0);
    EXPECT_EQ(posted(), Indices());
    clickTool(ToolCommand::Next);
    EXPECT_EQ(dialog().GetCurrentIndex(), 1);
    EXPECT_EQ(photo(1).changed, 1);
    EXPECT_EQ(posted(), Indices{0});
    EXPECT_EQ(image(0).GetProcessor()->GetWorking(), nullptr);
    ASSERT_NE(image(1).GetProcessor()->GetWorking(), nullptr);
    EXPECT_TRUE(image(1).GetProcessor()->IsScaled());
    QTest::keyClick(&dialog(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(dialog().GetCurrentIndex(), 2);
    control<QPushButton>(3009).click();
    EXPECT_EQ(dialog().GetCurrentIndex(), 2);
    EXPECT_EQ(posted(), Indices{1});
    QTest::keyClick(&dialog(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(posted(), Indices{2});
}

TEST_F(ImageProcessDialogTest, OkPostsNothingAndCloseOnce) {
    open();
    photo(0).changed = 0;
    control<QPushButton>(1).click();
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(photo(0).changed, 1);
    EXPECT_EQ(posted(), Indices());
    open(2);
    clickTool(ToolCommand::Close);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(posted(), Indices{2});
}

TEST_F(ImageProcessDialogTest, NeitherEscapeNorReturnCloses) {
    open();
    for (QWidget* widget : dialog().findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus &&
            qobject_cast<QAbstractButton*>(widget) == nullptr) {
            widget->setFocus();
            QTest::keyClick(widget, Qt::Key_Escape);
            QTest::keyClick(widget, Qt::Key_Return);
        }
    }
    EXPECT_TRUE(dialog().isVisible());
    dialog().close();
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
    EXPECT_EQ(posted(), Indices());
}

TEST_F(ImageProcessDialogTest, TabsShowTheirPages) {
    open();
    EXPECT_TRUE(shows<CPhotoInfoEditPage>());
    showTab(2);
    EXPECT_TRUE(shows<CPhotoEditOperTextPage>());
    EXPECT_FALSE(shows<CPhotoInfoEditPage>());
    showTab(4);
    EXPECT_TRUE(shows<CPhotoEditOperPropsPage>());
    showTab(6);
    EXPECT_TRUE(shows<CPhotoCropFilter>());
    control<QPushButton>(3023).click();
    EXPECT_TRUE(shows<CPhotoInfoEditPage>());
    control<QPushButton>(3004).click();
    EXPECT_TRUE(shows<CPhotoEditOperPropsPage>());
}

TEST_F(ImageProcessDialogTest, ASelectedSpriteBringsItsPageForward) {
    const QString clip = test::writePng(folder, QStringLiteral("clip.png"), test::gradient(60, 40));
    auto* text = new CDVDImageText(&image(0));
    text->SetText(QStringLiteral("Text"));
    text->SetPosition(100, 100);
    image(0).AddSprite(text, false);
    auto* props = new CDVDImageProps(&image(0), clip);
    props->SetPosition(300, 300);
    image(0).AddSprite(props, false);
    open();
    int notifications = 0;
    QObject::connect(&dialog(), &CImageProcessDialog::TabNotification, [&](int id, int code) {
        EXPECT_EQ(id, 3337);
        EXPECT_EQ(code, -551);
        ++notifications;
    });
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, {110, 110});
    EXPECT_EQ(tab(), 2);
    EXPECT_TRUE(shows<CPhotoEditOperTextPage>());
    showTab(6);
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, {310, 310});
    EXPECT_EQ(tab(), 4);
    EXPECT_TRUE(shows<CPhotoEditOperPropsPage>());
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, {590, 10});
    EXPECT_EQ(tab(), 4);
    EXPECT_EQ(notifications, 2);
    // The guards compare with the items before the targets, one of which is the text tab.
    showTab(2);
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, {310, 310});
    EXPECT_EQ(tab(), 2);
}

TEST_F(ImageProcessDialogTest, AlbumChangesMarkEveryPhoto) {
    open();
    photo(2).changed = 0;
    canvas().AddText();
    EXPECT_EQ(photo(2).changed, 0);
    canvas().Command(33927);
    EXPECT_EQ(photo(2).changed, 1);
    // It is there already, and without a selection there is nothing to share.
    photo(0).changed = photo(2).changed = 0;
    canvas().Command(33927);
    open(1);
    photo(1).changed = 0;
    canvas().Command(33927);
    EXPECT_EQ(photo(0).changed, 0);
    EXPECT_EQ(photo(1).changed, 0);
    EXPECT_EQ(photo(2).changed, 0);
    EXPECT_EQ(document.GetAlbum()->GetSprites().GetSize(), 1);
}

TEST_F(ImageProcessDialogTest, ABrokenPhotoIsHarmless) {
    char16_t missing[] = u"/nowhere/missing.jpg";
    std::copy(std::begin(missing), std::end(missing), photo(0).path);
    open();
    for (int command = 0; command < 6; ++command) {
        clickTool(static_cast<ToolCommand>(command));
    }
    control<QPushButton>(3008).click();
    for (const int item : {2, 4, 6, 0}) {
        showTab(item);
    }
    control<QPushButton>(3025).click();
    control<QPushButton>(3045).click();
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(image(0).GetProcessor()->GetFilterCount(), 0);
}

TEST_F(ImageProcessDialogTest, APhotoWithoutMemoryForItsPictureIsHarmless) {
    class NoMemory : public COpencvFilterInterface {
    public:
        bool Apply(IplImage** /*image*/) override { throw std::bad_alloc(); }
        [[nodiscard]] COpencvFilterInterface* Clone() const override { return nullptr; }
        [[nodiscard]] const char16_t* GetName() const override { return u"No Memory"; }
    };
    image(1).GetProcessor()->AddFilterToChain(new NoMemory);
    open();
    clickTool(ToolCommand::Next);
    EXPECT_EQ(dialog().GetCurrentIndex(), 1);
    EXPECT_EQ(image(1).GetProcessor()->GetWorking(), nullptr);
    canvas().grab();
    clickTool(ToolCommand::Next);
    ASSERT_NE(image(2).GetProcessor()->GetWorking(), nullptr);
    NoMemory current;
    image(2).GetProcessor()->SetCurrentFilter(&current);
    canvas().Redraw();
    canvas().grab();
    showTab(6);
    control<QPushButton>(3025).click();
    image(2).GetProcessor()->SetCurrentFilter(nullptr);
    open(1);
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(ImageProcessDialogTest, APhotoMayStandInTheListTwice) {
    ASSERT_EQ(document.InsertNode(nullptr, DupHandle(m_handles[0]), 1, nullptr), S_OK);
    open();
    for (const int index : {1, 2, 3, 3}) {
        clickTool(ToolCommand::Next);
        EXPECT_EQ(dialog().GetCurrentIndex(), index);
    }
    EXPECT_EQ(posted(), (Indices{0, 1, 2}));
    open(1);
    clickTool(ToolCommand::FlipX);
    EXPECT_EQ(posted(), Indices{1});
    ReleaseNode(m_handles[0]);
}

// Inserting a node binds it to nothing; what the canvas shows is what is rendered.
TEST_F(ImageProcessDialogTest, APhotoThatIsShownIsBoundToTheAlbum) {
    CImageObj other;
    ASSERT_EQ(other.InsertNode(nullptr, m_handles[1], 0, nullptr), S_OK);
    ASSERT_EQ(document.RemoveAt(1), S_OK);
    ASSERT_EQ(document.AddNode(m_handles[1]), S_OK);
    image(1).BindNode(&photo(1), other.GetAlbum());
    open(0);
    clickTool(ToolCommand::Next);
    clickTool(ToolCommand::Next);
    EXPECT_EQ(image(1).GetAlbum(), document.GetAlbum());
    close();
}

TEST_F(ImageProcessDialogTest, SurvivesChangesOfTheListByTheHost) {
    open(1);
    // The photo moves up by one.
    document.RemoveAt(0);
    clickTool(ToolCommand::FlipX);
    EXPECT_EQ(photo(1).flip_x, 1);
    EXPECT_EQ(posted(), Indices{0});
    // It is deleted under the dialog.
    ReleaseNode(m_handles[1]);
    document.RemoveAt(0);
    m_handles.erase(m_handles.begin() + 1);
    for (const ToolCommand command : {ToolCommand::FlipY, ToolCommand::RotateLeft}) {
        clickTool(command);
    }
    showTab(6);
    showTab(0);
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, {300, 200});
    canvas().grab();
    EXPECT_EQ(posted(), Indices());
    clickTool(ToolCommand::Close);
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(ImageProcessDialogTest, LinesEndTheHeaders) {
    open();
    const QImage frame = dialog().grab().toImage();
    constexpr QColor kLine(0xCC, 0xCC, 0xCC);
    EXPECT_EQ(frame.pixelColor(5, 71), kLine);
    EXPECT_EQ(frame.pixelColor(frame.width() - 1, 71), kLine);
    EXPECT_EQ(frame.pixelColor(632, 90), kLine);
    EXPECT_NE(frame.pixelColor(4, 71), kLine);
    EXPECT_NE(frame.pixelColor(631, 90), kLine);
}

TEST_F(ImageProcessDialogTest, SystemButtonsAndTitleZoneMaximise) {
    open();
    const QRect before = dialog().geometry();
    QTest::mouseDClick(&dialog(), Qt::LeftButton, {}, {300, 2});
    QTest::mouseDClick(&dialog(), Qt::RightButton, {}, {300, 10});
    EXPECT_FALSE(dialog().IsMaximized());
    QTest::mouseDClick(&dialog(), Qt::LeftButton, {}, {300, 10});
    EXPECT_TRUE(dialog().IsMaximized());
    EXPECT_TRUE(dialog().findChild<QWidget*>(QStringLiteral("SysBar2"))->isVisible());
    EXPECT_FALSE(dialog().findChild<QWidget*>(QStringLiteral("SysBar"))->isVisible());
    dialog().SystemCommand(kSystemRestore);
    EXPECT_EQ(dialog().geometry(), before);
    const QWidget* bar = dialog().findChild<QWidget*>(QStringLiteral("SysBar"));
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->size(), QSize(66, 11));
}

TEST_F(ImageProcessDialogTest, EveryControlIsNamedAndTold) {
    open();
    for (const int item : {0, 2, 4, 6}) {
        showTab(item);
        for (QWidget* widget : dialog().findChildren<QWidget*>()) {
            const bool isPart = widget->parentWidget() != nullptr &&
                                widget->parentWidget()->inherits("QAbstractSpinBox");
            if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus || isPart ||
                widget->inherits("QTabBar")) {
                continue;
            }
            EXPECT_FALSE(widget->accessibleName().isEmpty())
                << widget->metaObject()->className() << ' '
                << widget->property(kControlIdProperty).toInt();
            EXPECT_TRUE(!widget->toolTip().isEmpty() || widget == &canvas())
                << widget->metaObject()->className();
        }
    }
}

}  // namespace
}  // namespace vellora
