#include <QPainterPath>

#include <gtest/gtest.h>

#include <vellora/text/PhotoTextEffect.h>

#include "text/TextLayout.h"

namespace vellora {
namespace {

const QRectF kAll(-1e6, -1e6, 2e6, 2e6);

struct TextLayoutTest : testing::Test {
    QFont font = CPhotoTextEffect::LayoutFont("Arial", false, false, false);

    QSizeF size(const QString& text) { return TextLayout(font, text).size(); }
    QRectF ink(const QString& text, std::int32_t align = kAlignLeading) {
        return TextLayout(font, text, align).outline(kAll).boundingRect();
    }
};

TEST_F(TextLayoutTest, MeasuresWhatItDraws) {
    const QString texts[] = {
        "Summer",
        "  leading",
        "trailing   ",
        "tab\there",
        "two\nlines",
        "Windows\r\nbreak\rold",
        QString::fromUtf8("\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD"),
        QString::fromUtf8("\u0645\u0631\u062D\u0628\u0627"),
        QString::fromUtf8("e\u0301a\u0308o\u0302"),
        QString::fromUtf8("\u263A \u2764 \u2600"),
        QString::fromUtf8("mixed \u05E9\u05DC\u05D5\u05DD text"),
    };
    for (const QString& text : texts) {
        const QRectF box(QPointF(), size(text));
        const QRectF drawn = ink(text);
        EXPECT_FALSE(drawn.isEmpty()) << text.toStdString();
        // Italics and accents may lean out a little.
        EXPECT_TRUE(box.adjusted(-8, -8, 8, 8).contains(drawn)) << text.toStdString();
    }
    EXPECT_EQ(size(""), QSizeF());
    EXPECT_TRUE(ink("").isEmpty());
}

TEST_F(TextLayoutTest, CountsBlanksTabsAndEmptyLines) {
    const double blank = size("a a").width() - size("aa").width();
    EXPECT_GT(blank, 20);
    EXPECT_NEAR(size("  a").width() - size("a").width(), 2 * blank, 1);
    EXPECT_NEAR(size("a  ").width() - size("a").width(), 2 * blank, 1);
    EXPECT_NEAR(size("   ").width() - size(" ").width(), 2 * blank, 1);
    EXPECT_NEAR(ink("  a").left() - ink("a").left(), 2 * blank, 1);
    EXPECT_GT(size("a\ta").width(), size("aa").width() + 100);
    const double line = size("a").height();
    EXPECT_NEAR(line, 160 * 1.15, 12) << "the line spacing of a 120-point font";
    for (const char* text : {"a\nb", "a\rb", "a\r\nb", "a\n", "\na", "\n"}) {
        EXPECT_NEAR(size(text).height(), 2 * line, 1.5) << text;
    }
    EXPECT_NEAR(ink("\na").top() - ink("a").top(), line, 1.5);
}

TEST_F(TextLayoutTest, AlignsLines) {
    const QString lines = "a wide line\nx";
    const double box = size(lines).width();
    const auto shortLine = [&](const QString& text, std::int32_t align) {
        const TextLayout layout(font, text, align);
        const double middle = layout.size().height() / 2;
        QPainterPath below;
        below.addRect(-1e5, middle + 20, 2e5, middle);
        return layout.outline(kAll).intersected(below).boundingRect();
    };
    EXPECT_LT(shortLine(lines, kAlignLeading).left(), 60);
    EXPECT_LT(shortLine(lines, 77).left(), 60) << "an unknown number leads";
    EXPECT_NEAR(shortLine(lines, kAlignCentre).center().x(), box / 2, 6);
    EXPECT_GT(shortLine(lines, kAlignTrailing).right(), box - 60);
    const QString hebrew = QString::fromUtf8("a wide line\n\u05E9");
    EXPECT_GT(shortLine(hebrew, kAlignLeading).right(), box - 60) << "right to left leads there";
}

TEST_F(TextLayoutTest, DrawsRightToLeftTextInItsOrder) {
    // Alef, then a final nun, whose tail reaches below the line: it must stand left.
    const QPainterPath path = TextLayout(font, QString::fromUtf8("\u05D0\u05DF")).outline(kAll);
    QPainterPath left;
    left.addRect(path.boundingRect().left(), path.boundingRect().top(),
                 path.boundingRect().width() * 0.35, path.boundingRect().height());
    EXPECT_NEAR(path.intersected(left).boundingRect().bottom(), path.boundingRect().bottom(), 1);
}

TEST_F(TextLayoutTest, TakesMissingGlyphsAndFamiliesFromOtherFonts) {
    // Latin text in a family that is not installed still shows.
    font = CPhotoTextEffect::LayoutFont("No Such Family 123", false, false, false);
    EXPECT_FALSE(ink("Summer").isEmpty());
    // A symbol that the font lacks has an outline of its own, not that of the missing glyph.
    font = CPhotoTextEffect::LayoutFont("Liberation Sans", false, false, false);
    const auto outline = [&](const QString& text) { return TextLayout(font, text).outline(kAll); };
    const QPainterPath snowman = outline(QString::fromUtf8("\u2603"));
    const QPainterPath umbrella = outline(QString::fromUtf8("\u2602"));
    EXPECT_FALSE(snowman.isEmpty());
    EXPECT_NE(snowman, umbrella);
}

TEST_F(TextLayoutTest, StylesTheFont) {
    const auto width = [&](bool bold, bool italic) {
        font = CPhotoTextEffect::LayoutFont("Arial", bold, italic, false);
        return ink("Summer").width();
    };
    EXPECT_GT(width(true, false), width(false, false) + 10);
    EXPECT_NE(width(false, true), width(false, false));
    font = CPhotoTextEffect::LayoutFont("Arial", false, false, true);
    const QPainterPath plain = TextLayout(font, "  y  ").outline(kAll);
    EXPECT_NEAR(plain.boundingRect().width(), size("  y  ").width() - 2 * 160.0 / 6, 2)
        << "blanks are underlined too";
}

TEST_F(TextLayoutTest, OverlappingShapesCutNoHoles) {
    font = CPhotoTextEffect::LayoutFont("Arial", false, false, true);
    const TextLayout layout(font, "ggg");
    const QPainterPath path = layout.outline(kAll);
    const QPainterPath line = TextLayout(font, "   ").outline(kAll);
    const double y = line.boundingRect().center().y();
    for (double x = 60; x < layout.size().width() - 60; x += 3) {
        EXPECT_TRUE(path.contains(QPointF(x, y))) << x;
    }
}

TEST_F(TextLayoutTest, KeepsAWideGlyphWhileAnyPartOfItShows) {
    // As wide as a whole word of some scripts, and wider.
    for (const int stretch : {100, 400, 1000, 4000}) {
        font.setStretch(stretch);
        const TextLayout layout(font, u"\u2014"_qs);
        const QPainterPath dash = layout.outline(kAll);
        const QRectF box = dash.boundingRect();
        EXPECT_NEAR(box.width(), 1.6 * stretch, 1);
        for (double x = box.left() - 90; x < box.right(); x += 50) {
            const QRectF window(x, box.top(), 100, box.height());
            EXPECT_EQ(layout.outline(window), dash) << stretch << " at " << x;
        }
        const QPointF away(box.width() + 1000, 0);
        EXPECT_TRUE(layout.outline(box.translated(away)).isEmpty());
        EXPECT_TRUE(layout.outline(box.translated(-away)).isEmpty());
    }
}

TEST_F(TextLayoutTest, BoundsWhatAFileAsksFor) {
    EXPECT_EQ(size(QString(100'000, 'm')), size(QString(8192, 'm')));
    EXPECT_EQ(size(QString(100'000, '\n')).height(), size(QString(8192, '\n')).height());
    // Half of a pair at the cut is dropped, not drawn as a box.
    const QString faces = QString::fromUtf8("\U0001F600").repeated(5000);
    EXPECT_EQ(size("a" + faces), size("a" + faces.first(8190)));
    const TextLayout layout(font, QString(8000, 'm'));
    EXPECT_LT(layout.outline(QRectF(0, 0, 500, 200)).elementCount(), 2000)
        << "glyphs that cannot show are left out";
}

}  // namespace
}  // namespace vellora
