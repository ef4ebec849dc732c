// The text and art-clip pages.

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "support/TestPhotos.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/controls/FontPreviewCombo.h"
#include "ui/dialog/DialogFixture.h"

namespace vellora {
namespace {

constexpr char kCatalogue[] = R"(<?xml version="1.0"?><TEXT_EFFECT count="5">
<data id="0" font_name="Arial" font_size="20"><face style="solid"><color color1="ff"/></face></data>
<data id="1" font_name="Arial" font_size="30" bold="true">
<face style="solid"><color color1="ff00"/></face></data>
<data id="2" font_name="Arial"/></TEXT_EFFECT>)";

class SpritePagesTest : public test::DialogFixture {
protected:
    void SetUp() override {
        document.SetTextEffectBaseFolder(folder.path());
        write(QStringLiteral("texteffect/effect_list.xml"), kCatalogue);
        write(QStringLiteral("ArtClip/artclip.ini"),
              "[Base]\nStyleCount=2\n[Style1]\nName=Broken\nPath=broken\n"
              "[Style2]\nName=Empty\nPath=empty\n");
        write(QStringLiteral("ArtClip/broken/one.wmf"), "not a metafile");
        write(QStringLiteral("ArtClip/broken/two.EMF"), "neither");
    }
    void write(const QString& name, const QByteArray& text) {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void openText() {
        open();
        showTab(2);
    }
    QListWidget& list() { return control<QListWidget>(1021); }
    void clickRow(int row) {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().item(row)).center());
    }
    void doubleClickRow(int row) {
        const QPoint at = list().visualItemRect(list().item(row)).center();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, at);
    }
    CDVDImageText& text(int index) {
        return static_cast<CDVDImageText&>(*image(0).GetSprites().GetAt(index));
    }
};

TEST_F(SpritePagesTest, AddTextCascades) {
    openText();
    click(control<QPushButton>(1258));
    click(control<QPushButton>(1258));
    ASSERT_EQ(image(0).GetSprites().GetSize(), 2);
    EXPECT_EQ(text(0).GetText(), QStringLiteral("Double click to edit"));
    EXPECT_EQ(text(1).GetPosition(), text(0).GetPosition() + QPoint(20, 20));
    EXPECT_EQ(canvas().GetSelected(), &text(1));
    EXPECT_EQ(text(0).GetStyle().size, 24);
}

TEST_F(SpritePagesTest, ControlsChangeTheSelectedText) {
    openText();
    click(control<QPushButton>(1258));
    photo(0).changed = 0;
    click(control<QPushButton>(1229));
    click(control<QPushButton>(1230));
    EXPECT_EQ(text(0).GetStyle().effect.bold, 1);
    EXPECT_EQ(text(0).GetStyle().italic, 1);
    EXPECT_EQ(text(0).GetStyle().underline, 0);
    QSpinBox& size = control<QSpinBox>(1228);
    size.selectAll();
    QTest::keyClicks(&size, QStringLiteral("48"));
    EXPECT_EQ(text(0).GetStyle().size, 48);
    EXPECT_EQ(text(0).GetStyle().effect.font_size, 48);
    click(control<QCheckBox>(1179));
    EXPECT_EQ(text(0).GetStyle().effect.shadow, 1);
    auto& font = control<CFontPreviewCombo>(1210);
    font.SetFontName(QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(text(0).GetStyle().GetFont(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(photo(0).changed, 1);
}

TEST_F(SpritePagesTest, SelectingATextLoadsTheControlsAndChangesNothing) {
    auto* sprite = new CDVDImageText(&image(0));
    TextStyle style;
    style.SetFont(QStringLiteral("No Such Font"));
    style.size = 5000;
    style.effect.italic = 1;
    sprite->SetStyle(style);
    const TextStyle before = sprite->GetStyle();
    sprite->SetText(QStringLiteral("x"));
    sprite->SetPosition(10, 10);
    image(0).AddSprite(sprite, false);
    openText();
    photo(0).changed = 0;
    canvas().Select(sprite);
    EXPECT_EQ(control<QComboBox>(1210).currentText(), QStringLiteral("No Such Font"));
    EXPECT_TRUE(control<QPushButton>(1230).isChecked());
    EXPECT_EQ(sprite->GetStyle(), before);
    EXPECT_EQ(photo(0).changed, 0);
    click(control<QPushButton>(1231));
    EXPECT_EQ(sprite->GetStyle().size, 5000);
}

TEST_F(SpritePagesTest, TheEffectsStandInRows) {
    openText();
    ASSERT_EQ(list().count(), 5) << "two of them are not in the file";
    EXPECT_EQ(list().item(0)->text(), QStringLiteral("Style 1"));
    EXPECT_EQ(list().item(4)->text(), QStringLiteral("Style 5"));
    EXPECT_EQ(list().gridSize(), QSize(90, 75));
    const auto cornerOf = [this](int row) {
        return list().visualItemRect(list().item(row)).topLeft() -
               list().visualItemRect(list().item(0)).topLeft();
    };
    EXPECT_EQ(cornerOf(2), QPoint(180, 0)) << "three fit in a row, a scroll bar beside them";
    EXPECT_EQ(cornerOf(3), QPoint(0, 75));
    list().grab();
}

TEST_F(SpritePagesTest, EffectsApplyOnSelectionAndAddOnDoubleClick) {
    openText();
    click(control<QPushButton>(1258));
    clickRow(1);
    EXPECT_EQ(text(0).GetStyle().effect.face.colour, 0xFF00U);
    EXPECT_EQ(text(0).GetStyle().effect.bold, 1);
    EXPECT_TRUE(control<QPushButton>(1229).isChecked());
    EXPECT_EQ(text(0).GetStyle().size, 24);
    doubleClickRow(0);
    ASSERT_EQ(image(0).GetSprites().GetSize(), 2);
    EXPECT_EQ(text(1).GetStyle().effect.face.colour, 0xFF0000U);
    EXPECT_EQ(text(1).GetStyle().effect.bold, 0);
}

TEST_F(SpritePagesTest, ADoubleClickWhileTypingAddsNothing) {
    openText();
    click(control<QPushButton>(1258));
    QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, text(0).GetPosition() + QPoint(5, 5));
    ASSERT_TRUE(canvas().IsEditorOpen());
    doubleClickRow(1);
    EXPECT_EQ(image(0).GetSprites().GetSize(), 1);
}

TEST_F(SpritePagesTest, MacrosAreInserted) {
    openText();
    click(control<QPushButton>(1258));
    QStringList texts;
    QTimer::singleShot(0, &canvas(), [&texts] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (const QAction* action : menu->actions()) {
            texts << action->text();
        }
        menu->setActiveAction(menu->actions().at(4));
        QTest::keyClick(menu, Qt::Key_Return);
    });
    click(control<QPushButton>(1259));
    EXPECT_EQ(texts.size(), 8);
    EXPECT_EQ(texts.value(4), QStringLiteral("$[d] Photo description"));
    ASSERT_TRUE(canvas().IsEditorOpen());
    canvas().CommitEditor();
    EXPECT_TRUE(text(0).GetText().contains(QStringLiteral("$[d]")));
}

TEST_F(SpritePagesTest, SelectedObjectsAreSharedAndDeleted) {
    openText();
    click(control<QPushButton>(1258));
    click(control<QPushButton>(1358));
    EXPECT_EQ(image(0).GetSprites().GetSize(), 0);
    EXPECT_EQ(document.GetAlbum()->GetSprites().GetSize(), 1);
    click(control<QPushButton>(1385));
    EXPECT_EQ(document.GetAlbum()->GetSprites().GetSize(), 0);
}

TEST_F(SpritePagesTest, ClipsAreListedByStyle) {
    open();
    showTab(4);
    auto& styles = control<QComboBox>(1243);
    ASSERT_EQ(styles.count(), 2);
    EXPECT_EQ(styles.currentText(), QStringLiteral("Broken"));
    EXPECT_EQ(list().count(), 2);
    list().grab();
    doubleClickRow(1);
    EXPECT_EQ(image(0).GetSprites().GetSize(), 0);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().contains(QStringLiteral("two.EMF")));
    styles.setCurrentIndex(1);
    EXPECT_EQ(list().count(), 0);
    list().grab();
}

TEST_F(SpritePagesTest, AnyPictureFileCanBeAdded) {
    open();
    showTab(4);
    chosenFile = test::writePng(folder, QStringLiteral("clip.png"), test::gradient(80, 40));
    click(control<QPushButton>(1305));
    ASSERT_EQ(image(0).GetSprites().GetSize(), 1);
    const auto& clip = static_cast<const CDVDImageProps&>(*image(0).GetSprites().GetAt(0));
    EXPECT_EQ(clip.GetFile(), chosenFile);
    EXPECT_EQ(clip.GetSize().width(), 2 * clip.GetSize().height());
    chosenFile = folder.filePath(QStringLiteral("photo0.gif"));
    QFile::copy(folder.filePath(QStringLiteral("photo0.png")), chosenFile);
    click(control<QPushButton>(1305));
    EXPECT_EQ(image(0).GetSprites().GetSize(), 1);
    EXPECT_EQ(errors.size(), 1);
    chosenFile.clear();
    click(control<QPushButton>(1305));
    EXPECT_EQ(errors.size(), 1);
}

}  // namespace
}  // namespace vellora
