#include <QCoreApplication>
#include <QPlainTextEdit>

#include <vellora/host/Language.h>

#include "ui/canvas/CanvasFixture.h"

namespace vellora {
namespace {

class TextEditingTest : public test::CanvasFixture {
protected:
    [[nodiscard]] QPlainTextEdit* edit() const { return static_cast<QPlainTextEdit*>(editor()); }
    [[nodiscard]] CDVDImageText* only() const {
        EXPECT_EQ(m_record->GetSprites().GetSize(), 1);
        return static_cast<CDVDImageText*>(m_record->GetSprites().GetAt(0));
    }
};

TEST_F(TextEditingTest, AddTextCascadesWithTheCurrentProperties) {
    TextStyle style;
    style.size = 48;
    m_canvas.SetTextProperties(style);
    m_canvas.AddText();
    EXPECT_EQ(only()->GetText(), QStringLiteral("Double click to edit"));
    EXPECT_EQ(only()->GetPosition(), QPoint(50, 50));
    EXPECT_EQ(only()->GetStyle().size, 48);
    EXPECT_EQ(only()->GetStyle().effect.font_size, 48);
    EXPECT_EQ(m_canvas.GetSelected(), only());
    EXPECT_EQ(m_textSelected, 1);
    EXPECT_EQ(m_spriteSelected, 1);
    EXPECT_EQ(m_node->changed, 1);
    m_canvas.AddText();
    EXPECT_EQ(m_record->GetSprites().GetAt(1)->GetPosition(), QPoint(70, 70));
}

TEST_F(TextEditingTest, PropertiesGoToTheSelectedTextAndComeFromIt) {
    CDVDImageText* a = addText({50, 50}, QStringLiteral("First"));
    CDVDImageText* b = addText({50, 250}, QStringLiteral("Second"));
    click({60, 60});
    EXPECT_EQ(m_canvas.GetSelected(), a);
    EXPECT_EQ(m_textSelected, 1);
    TextStyle style = m_canvas.GetTextProperties();
    style.size = 60;
    m_canvas.SetTextProperties(style);
    EXPECT_EQ(a->GetStyle().size, 60);
    EXPECT_EQ(b->GetStyle().size, 24);
    EXPECT_EQ(m_node->changed, 1);
    click({60, 260});
    EXPECT_EQ(m_canvas.GetTextProperties().size, 24);
    m_node->changed = 0;
    m_canvas.SetTextProperties(m_canvas.GetTextProperties());
    EXPECT_EQ(m_node->changed, 0) << "the same again is no change";
}

TEST_F(TextEditingTest, TextsAreMovedButNotResized) {
    CDVDImageText* text = addText({50, 50}, QStringLiteral("Words"));
    const QSize size = text->GetSize();
    drag(QPoint(50, 50) + QPoint(size.width(), size.height()) - QPoint(1, 1), {300, 300});
    EXPECT_EQ(text->GetSize(), size);
    EXPECT_EQ(text->GetPosition(), QPoint(301 - size.width(), 301 - size.height()));
}

TEST_F(TextEditingTest, ADoubleClickOpensTheEditorAndReturnCommits) {
    CDVDImageText* text = addText({50, 50}, QStringLiteral("Words"));
    doubleClick({60, 60});
    ASSERT_TRUE(m_canvas.IsEditorOpen());
    EXPECT_EQ(m_canvas.GetSelected(), text);
    EXPECT_EQ(edit()->toPlainText(), QStringLiteral("Words"));
    EXPECT_EQ(edit()->pos(), QPoint(50, 50));
    type(QStringLiteral(" more"));
    EXPECT_EQ(text->GetText(), QStringLiteral("Words")) << "not before it is committed";
    key(Qt::Key_Return);
    EXPECT_FALSE(m_canvas.IsEditorOpen());
    EXPECT_EQ(text->GetText(), QStringLiteral("Words more"));
    EXPECT_EQ(text->GetPosition(), QPoint(50, 50));
    EXPECT_EQ(m_node->changed, 1);
    EXPECT_EQ(m_canvas.GetSelected(), text);
}

TEST_F(TextEditingTest, AClickBesideTheEditorCommits) {
    CDVDImageText* text = addText({50, 50}, QStringLiteral("Words"));
    doubleClick({60, 60});
    type(QStringLiteral("!"));
    press({400, 400});
    EXPECT_TRUE(m_canvas.IsEditorOpen()) << "the press alone changes nothing";
    release({400, 400});
    EXPECT_FALSE(m_canvas.IsEditorOpen());
    EXPECT_EQ(text->GetText(), QStringLiteral("Words!"));
}

TEST_F(TextEditingTest, EscapeWhileTypingANewTextCreatesNothing) {
    doubleClick({300, 300});
    ASSERT_TRUE(m_canvas.IsEditorOpen());
    type(QStringLiteral("abc"));
    key(Qt::Key_Escape);
    EXPECT_FALSE(m_canvas.IsEditorOpen());
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
    EXPECT_EQ(m_node->changed, 0);
    doubleClick({300, 300});
    type(QStringLiteral("abc"));
    key(Qt::Key_Return);
    EXPECT_EQ(only()->GetText(), QStringLiteral("abc"));
    EXPECT_EQ(only()->GetPosition(), QPoint(300, 300));
    EXPECT_EQ(m_canvas.GetSelected(), only());
    EXPECT_EQ(m_spriteSelected, 1);
}

TEST_F(TextEditingTest, AnEmptiedTextIsRemoved) {
    addText({50, 50}, QStringLiteral("Words"));
    doubleClick({60, 60});
    edit()->selectAll();
    key(Qt::Key_Delete);
    ASSERT_TRUE(m_canvas.IsEditorOpen()) << "Delete belongs to the editor";
    key(Qt::Key_Return);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
    EXPECT_EQ(m_canvas.GetSelected(), nullptr);
    EXPECT_EQ(m_albumChanged, 0);
}

TEST_F(TextEditingTest, ATextOfWhatNoFileCanHoldIsNone) {
    doubleClick({300, 300});
    edit()->setPlainText(QString(QChar(1)));
    key(Qt::Key_Return);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
    addText({50, 50}, QStringLiteral("Words"));
    doubleClick({60, 60});
    edit()->setPlainText(QString(QChar(1)));
    key(Qt::Key_Return);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
}

TEST_F(TextEditingTest, ATextThatNobodyTouchedStaysAsItIs) {
    const QString words = QStringLiteral("10\u00A0km\r\nto go");
    CDVDImageText* text = addText({50, 50}, words);
    m_node->changed = 0;
    doubleClick({60, 60});
    key(Qt::Key_Return);
    EXPECT_EQ(text->GetText(), words);
    EXPECT_EQ(m_node->changed, 0);
    doubleClick({60, 60});
    type(QStringLiteral("!"));
    key(Qt::Key_Return);
    EXPECT_EQ(text->GetText(), QStringLiteral("10\u00A0km\nto go!"));
}

TEST_F(TextEditingTest, ThePlaceholderIsTypedOver) {
    m_canvas.AddText();
    doubleClick({60, 60});
    type(QStringLiteral("Sea"));
    key(Qt::Key_Return);
    EXPECT_EQ(only()->GetText(), QStringLiteral("Sea"));
}

TEST_F(TextEditingTest, MacrosAreInsertedAsTokensAndShownExpanded) {
    CDVDImageText* text = addText({50, 50}, QStringLiteral("Slide "));
    m_canvas.SetSlide(2, 10);
    doubleClick({60, 60});
    m_canvas.InsertMacro(7);
    type(QStringLiteral(" of "));
    m_canvas.InsertMacro(6);
    m_canvas.InsertMacro(12);
    m_canvas.CommitEditor();
    EXPECT_EQ(text->GetText(), QStringLiteral("Slide $[p] of $[P]"));
    EXPECT_EQ(text->GetDisplayText(), QStringLiteral("Slide 3 of 10"));
    // A closed editor is opened on the selected text.
    m_canvas.InsertMacro(0);
    ASSERT_TRUE(m_canvas.IsEditorOpen());
    key(Qt::Key_Return);
    EXPECT_EQ(text->GetText(), QStringLiteral("Slide $[p] of $[P]$[F]"));
    EXPECT_EQ(text->GetDisplayText(), QStringLiteral("Slide 3 of 10photo.png"));
}

TEST_F(TextEditingTest, AMacroWithoutASelectedTextBecomesANewText) {
    m_canvas.InsertMacro(9);
    ASSERT_TRUE(m_canvas.IsEditorOpen());
    key(Qt::Key_Return);
    EXPECT_EQ(only()->GetText(), QStringLiteral("$[D]"));
}

TEST_F(TextEditingTest, LeavingThePhotoCommitsTheEditorToIt) {
    CDVDImageText* text = addText({50, 50}, QStringLiteral("Words"));
    doubleClick({60, 60});
    type(QStringLiteral("!"));
    const std::unique_ptr<_PHOTO_LIST_NODE> oldNode = std::move(m_node);
    const std::unique_ptr<CDVDImage> old = std::move(m_record);
    m_record = std::make_unique<CDVDImage>();
    m_session.setPhoto(m_record.get(), &m_album);
    EXPECT_FALSE(m_canvas.IsEditorOpen());
    EXPECT_EQ(text->GetText(), QStringLiteral("Words!"));
    EXPECT_EQ(m_canvas.GetSelected(), nullptr);
    m_session.setPhoto(nullptr, nullptr);
}

TEST_F(TextEditingTest, ATextThatGoesWhileItIsTypedIsAddedAnew) {
    addText({50, 50}, QStringLiteral("Words"));
    doubleClick({60, 60});
    m_record->ClearSprites(true);
    type(QStringLiteral("!"));
    key(Qt::Key_Return);
    EXPECT_EQ(only()->GetText(), QStringLiteral("Words!"));
}

TEST_F(TextEditingTest, TheEditorHidesTheTextBeneathIt) {
    TextStyle style;
    style.size = 90;
    style.effect.face = TextBrushSettings::Solid(0x000000FF);
    m_canvas.SetTextProperties(style);
    m_canvas.AddText();
    const auto redPixels = [this] {
        const QImage image = shown();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
            }
        }
        return count;
    };
    const int before = redPixels();
    EXPECT_GT(before, 1000);
    doubleClick({100, 100});
    edit()->setPlainText(QStringLiteral("."));
    EXPECT_LT(redPixels(), before / 4);
}

TEST_F(TextEditingTest, ReturnAndEscapeReleasedAfterAnotherWindowClosedDoNothing) {
    CDVDImageText* text = addText({50, 50}, QStringLiteral("Words"));
    m_canvas.SetCropMode(0);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_canvas, &release);
    EXPECT_FALSE(m_canvas.GetCropFrame().isEmpty());
    m_canvas.SetCropMode(3);
    doubleClick({60, 60});
    QCoreApplication::sendEvent(edit(), &release);
    EXPECT_TRUE(m_canvas.IsEditorOpen());
    m_canvas.CommitEditor();
    EXPECT_EQ(text->GetText(), QStringLiteral("Words"));
}

TEST_F(TextEditingTest, AHundredThousandPastedCharactersAreKept) {
    m_canvas.AddText();
    doubleClick({60, 60});
    edit()->setPlainText(QString(100000, u'x') + QChar(0xD83D));
    key(Qt::Key_Return);
    EXPECT_EQ(only()->GetText(), QString(100000, u'x')) << "no half character stays";
    shown();
}

}  // namespace
}  // namespace vellora
