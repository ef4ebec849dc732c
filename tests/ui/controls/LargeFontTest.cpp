// Controls under a large system font: what has room is not cut.

#include <QPushButton>

#include <gtest/gtest.h>

#include "ui/controls/CoolButton.h"
#include "ui/controls/CoolToolBar.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {
namespace {

QFont largeFont() {
    QFont font;
    font.setPointSizeF(20);
    return font;
}

TEST(LargeFontTest, ALongCaptionTakesRoomFromShortOnes) {
    CFlexibleToolBar panel(QStringLiteral("panel"));
    panel.setFont(largeFont());
    for (const char* caption : {"Vorheriges Foto", "X", "Y", "Links drehen"}) {
        panel.AddButton(skin::Icon::Close, QString::fromLatin1(caption), {});
    }
    panel.resize(panel.sizeHint());
    panel.grab();
    for (int index = 0; index < 4; ++index) {
        EXPECT_GE(panel.GetButton(index)->width() + 1, panel.GetButton(index)->sizeHint().width());
    }
    EXPECT_EQ(panel.GetButton(3)->geometry().right(), panel.rect().right());
    panel.resize(4000, 80);
    panel.grab();
    EXPECT_EQ(panel.GetButton(1)->width(), 1000) << "equal cells where all captions fit";
}

TEST(LargeFontTest, AButtonIsAsWideAsItsText) {
    QWidget window;
    window.setFont(largeFont());
    QPushButton button(&window);
    skin::applySkin(window);
    const auto pictureOf = [&button](int extra) {
        button.resize(button.sizeHint() + QSize(extra, 0));
        const QImage picture = button.grab().toImage();
        return picture.copy(extra / 2 + 8, 8, picture.width() - extra - 16, picture.height() - 16);
    };
    for (const char* text : {"Abbrechen", "Mehr..."}) {
        button.setText(QString::fromLatin1(text));
        EXPECT_EQ(pictureOf(0), pictureOf(80)) << text << " is cut";
    }
}

}  // namespace
}  // namespace vellora
