#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <vellora/base/HostText.h>

#include "ui/dialog/DialogFixture.h"
#include "ui/pages/PhotoInfoEditPage.h"

namespace vellora {
namespace {

class InfoPageTest : public test::DialogFixture {
protected:
    QLineEdit& title() { return control<QLineEdit>(3010); }
    QPlainTextEdit& description() { return control<QPlainTextEdit>(3015); }
    void paste(QWidget& edit, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(InfoPageTest, TypedTitlesAreCheckedAndAnnounced) {
    open();
    QTest::keyClicks(&title(), QStringLiteral("a/b"));
    EXPECT_EQ(title().text(), QStringLiteral("ab"));
    ASSERT_EQ(errors.size(), 1);
    EXPECT_EQ(errors.first(),
              QStringLiteral("File title can not contain these characters: / : * ? \" |"));
    errors.clear();
    title().clear();
    paste(title(), QString(100, u'x'));
    EXPECT_TRUE(errors.isEmpty());
    title().clear();
    paste(title(), QString(100000, u'y'));
    EXPECT_EQ(title().text(), QString(100, u'y'));
    EXPECT_EQ(errors, QStringList{QStringLiteral("Photo title must not exceed 100 chars.")});
}

TEST_F(InfoPageTest, TheCaretStaysBehindWhatWasTyped) {
    open();
    title().setText(QStringLiteral("abcd"));
    title().setCursorPosition(2);
    QTest::keyClicks(&title(), QStringLiteral("?x"));
    EXPECT_EQ(title().text(), QStringLiteral("abxcd"));
}

TEST_F(InfoPageTest, LongDescriptionsAreCut) {
    open();
    paste(description(), QString(1000, u'd'));
    EXPECT_TRUE(errors.isEmpty());
    QTest::keyClick(&description(), Qt::Key_E);
    EXPECT_EQ(description().toPlainText(), QString(1000, u'd'));
    EXPECT_EQ(errors, QStringList{QStringLiteral("Photo description must not exceed 1000 chars.")});
}

TEST_F(InfoPageTest, TabSwitchNavigationAndCloseWriteTheRecord) {
    open();
    QTest::keyClicks(&title(), QStringLiteral("First"));
    showTab(2);
    EXPECT_EQ(hostText(photo(0).title), QStringLiteral("First"));
    showTab(0);
    QTest::keyClicks(&description(), QStringLiteral("Text"));
    QTest::keyClick(&description(), Qt::Key_Return);
    clickTool(ToolCommand::Next);
    EXPECT_EQ(hostText(photo(0).description), QStringLiteral("Text\n"));
    EXPECT_TRUE(title().text().isEmpty());
    QTest::keyClicks(&title(), QStringLiteral("Second"));
    dialog().close();
    EXPECT_EQ(hostText(photo(1).title), QStringLiteral("Second"));
}

TEST_F(InfoPageTest, ADescriptionThatNobodyTouchedStaysAsItIs) {
    const QString stored = QStringLiteral("a\u2028b\u00A0c\r\nd\uFDD0e");
    setHostText(photo(0).description, stored);
    open();
    showTab(2);
    EXPECT_EQ(hostText(photo(0).description), stored);
    showTab(0);
    description().moveCursor(QTextCursor::End);
    QTest::keyClick(&description(), Qt::Key_F);
    showTab(2);
    EXPECT_TRUE(hostText(photo(0).description).startsWith(QStringLiteral("a\nb\u00A0c\nd")));
}

TEST_F(InfoPageTest, CarriesTheOtherValuesThrough) {
    photo(0).first_duration = 0;
    photo(0).second_duration = 7;
    photo(0).carried = -12345;
    setHostText(photo(0).link, QStringLiteral("https://example.org/a"));
    setHostText(photo(0).description, QStringLiteral("one\r\ntwo\u00A0three"));
    open();
    QUrl opened;
    userPrompts().openUrl = [&opened](const QUrl& url) { opened = url; };
    dialog().findChild<CPhotoInfoEditPage*>()->OpenLink();
    EXPECT_EQ(opened, QUrl(QStringLiteral("https://example.org/a")));
    dialog().close();
    EXPECT_EQ(photo(0).first_duration, 2);
    EXPECT_EQ(photo(0).second_duration, 7);
    EXPECT_EQ(photo(0).carried, -12345);
    EXPECT_EQ(hostText(photo(0).link), QStringLiteral("https://example.org/a"));
    EXPECT_EQ(hostText(photo(0).description), QStringLiteral("one\r\ntwo\u00A0three"));
}

TEST_F(InfoPageTest, LoadingShowsNoMessage) {
    setHostText(photo(0).title, QStringLiteral("a/b"));
    open();
    EXPECT_EQ(title().text(), QStringLiteral("a/b"));
    EXPECT_TRUE(errors.isEmpty());
}

}  // namespace
}  // namespace vellora
