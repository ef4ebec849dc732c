#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "support/TestPhotos.h"
#include "ui/dialog/BrushSettings.h"
#include "ui/dialog/DialogFixture.h"
#include "ui/dialog/DlgTextBrush.h"

namespace vellora {
namespace {

TextBrushSettings gradientBrush() {
    TextBrushSettings brush;
    brush.type = kGradientBrush;
    brush.colour1 = 0x112233;
    brush.colour2 = 0x445566;
    brush.angle = 30;
    brush.position_percent = 40;
    return brush;
}

TEST(OpeningBrushTest, StartsFromWhiteToRed) {
    const TextBrushSettings brush = openingBrush(nullptr, {QStringLiteral("a.png")});
    EXPECT_EQ(brush.type, kSolidBrush);
    EXPECT_EQ(brush.colour, 0U);
    EXPECT_EQ(brush.colour1, 0xFFFFFFU);
    EXPECT_EQ(brush.colour2, 240U);
    EXPECT_EQ(brush.angle, 90);
    EXPECT_EQ(brush.GetTextureName(), QStringLiteral("a.png"));
}

TEST(OpeningBrushTest, TakesOverWhatTheTypeHas) {
    const TextBrushSettings gradient = gradientBrush();
    const TextBrushSettings opened = openingBrush(&gradient, {});
    EXPECT_EQ(opened.colour1, 0x112233U);
    EXPECT_EQ(opened.colour2, 0x445566U);
    EXPECT_EQ(opened.angle, 90);
    EXPECT_EQ(opened.position_percent, 40);
    TextBrushSettings odd = TextBrushSettings::Solid(0x0A0B0C);
    odd.type = 7;
    EXPECT_EQ(openingBrush(&odd, {}).type, kSolidBrush);
    EXPECT_EQ(openingBrush(&odd, {}).colour, 0x0A0B0CU);
    TextBrushSettings texture;
    texture.type = kTextureBrush;
    texture.SetTextureName(QStringLiteral("b.png"));
    const QStringList names{QStringLiteral("a.png"), QStringLiteral("b.png")};
    EXPECT_EQ(openingBrush(&texture, names).GetTextureName(), QStringLiteral("b.png"));
    texture.SetTextureName(QStringLiteral("gone.png"));
    EXPECT_EQ(openingBrush(&texture, names).GetTextureName(), QStringLiteral("a.png"));
}

class TextBrushDialogTest : public test::DialogFixture {
protected:
    TextBrushDialogTest() {
        QDir(folder.path()).mkpath(QStringLiteral("texteffect/texture"));
        for (const char* name : {"one.png", "two.png"}) {
            test::writePng(folder, QStringLiteral("texteffect/texture/") + QLatin1String(name),
                           test::gradient(8, 8));
        }
    }
    template <class Control>
    static Control& in(const QWidget& window, int id) {
        return *controlWithId<Control>(window, id);
    }
};

TEST_F(TextBrushDialogTest, OkCopiesAndCancelDoesNot) {
    TextBrushSettings brush = gradientBrush();
    const TextBrushSettings before = brush;
    CDlgTextBrush cancelled(&brush, folder.path(), nullptr);
    cancelled.show();
    click(in<QRadioButton>(cancelled, 1401));
    click(in<QPushButton>(cancelled, 2));
    EXPECT_EQ(brush, before);
    CDlgTextBrush accepted(&brush, folder.path(), nullptr);
    accepted.show();
    click(in<QPushButton>(accepted, 1));
    EXPECT_EQ(brush.angle, 90);
    EXPECT_EQ(brush.colour1, before.colour1);
}

TEST_F(TextBrushDialogTest, ControlsFollowTheType) {
    TextBrushSettings brush = gradientBrush();
    CDlgTextBrush dialog(&brush, folder.path(), nullptr);
    dialog.show();
    EXPECT_TRUE(in<QPushButton>(dialog, 1405).isVisible());
    EXPECT_FALSE(in<QComboBox>(dialog, 1406).isEnabled());
    click(in<QRadioButton>(dialog, 1403));
    EXPECT_FALSE(in<QPushButton>(dialog, 1405).isVisible());
    EXPECT_TRUE(in<QComboBox>(dialog, 1406).isEnabled());
    QTest::keyClick(&in<QComboBox>(dialog, 1406), Qt::Key_Down);
    chosenColour = QColor(1, 2, 3);
    click(in<QPushButton>(dialog, 1404));  // nothing to choose for a texture
    click(in<QPushButton>(dialog, 1));
    EXPECT_EQ(brush.type, kTextureBrush);
    EXPECT_EQ(brush.GetTextureName(), QStringLiteral("two.png"));
    EXPECT_EQ(brush.colour1, 0x112233U);
}

TEST_F(TextBrushDialogTest, ColoursArePicked) {
    TextBrushSettings brush = gradientBrush();
    CDlgTextBrush dialog(&brush, folder.path(), nullptr);
    dialog.show();
    chosenColour = QColor(255, 0, 16);
    click(in<QPushButton>(dialog, 1404));
    chosenColour = QColor(0, 255, 0);
    click(in<QPushButton>(dialog, 1405));
    click(in<QRadioButton>(dialog, 1401));
    chosenColour = QColor(0, 0, 255);
    click(in<QPushButton>(dialog, 1404));
    chosenColour.reset();
    click(in<QPushButton>(dialog, 1404));
    click(in<QPushButton>(dialog, 1));
    EXPECT_EQ(brush.colour1, 0x1000FFU);
    EXPECT_EQ(brush.colour2, 0x00FF00U);
    EXPECT_EQ(brush.colour, 0xFF0000U);
    EXPECT_EQ(brush.type, kSolidBrush);
}

}  // namespace
}  // namespace vellora
