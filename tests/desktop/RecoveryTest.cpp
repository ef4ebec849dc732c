// What becomes of changes that a crash has left in automatic copies, and how questions name shows.

#include <QLabel>
#include <QMenu>
#include <QMenuBar>

#include "DesktopFixture.h"
#include "desktop/Autosave.h"
#include "desktop/MainWindow.h"
#include "desktop/MessageBox.h"
#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

struct RecoveryTest : DesktopTest {
    QString show = folder.filePath(QStringLiteral("trip.vshow"));

    /// A show of one photo, and the copy of a program that crashed after `added` more were added.
    void crash(int added = 1) {
        ShowDocument document;
        QString error;
        QStringList problems;
        if (QFile::exists(show)) {
            ASSERT_EQ(document.open(show, &problems), ShowDocument::OpenResult::Opened);
        } else {
            add(document, 1);
            ASSERT_TRUE(document.save(show, &error)) << qPrintable(error);
        }
        QTest::qWait(20);
        add(document, added);
        EXPECT_TRUE(Autosave(document).update());
    }

    void add(ShowDocument& document, int count) {
        for (int k = 0; k < count; ++k) {
            document.addFiles({photo(QStringLiteral("a.png"))}, document.slides().count(), 0);
        }
    }

    static int photosIn(const QString& file) {
        QStringList problems;
        QString error;
        const auto stored = hostkit::readShow(file, &problems, &error);
        return stored ? static_cast<int>(stored->photos.size()) : -1;
    }

    static QList<int> photosInCopiesOf(const QString& show) {
        QList<int> result;
        for (const QString& copy : Autosave::copiesOf(show)) {
            result.append(photosIn(copy));
        }
        return result;
    }

    static void makeCopy(MainWindow& window) { Q_EMIT window.findChild<Autosave*>()->due(); }
};

TEST_F(RecoveryTest, ACopyWaitsUntilItIsTakenOrRefused) {
    crash(4);
    {
        MainWindow window;
        window.show();
        answerNext(QMessageBox::RejectRole);
        window.openPaths({show});
        EXPECT_EQ(window.document().slides().count(), 1);
        add(window.document(), 1);
        QTest::qWait(20);
        makeCopy(window);
        EXPECT_EQ(photosInCopiesOf(show), (QList<int>{2, 5}));
        makeCopy(window);
        EXPECT_EQ(photosInCopiesOf(show), (QList<int>{2, 5})) << "one of its own";
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
        EXPECT_FALSE(window.isWindowModified());
        EXPECT_EQ(photosInCopiesOf(show), QList<int>{5}) << "saving decides nothing";
    }
    MainWindow window;
    window.show();
    QString told;
    answerNext(QMessageBox::AcceptRole,
               [&](const QMessageBox& box) { told = box.informativeText(); });
    window.openPaths({show});
    EXPECT_EQ(told, u"The show was saved after that.");
    EXPECT_EQ(window.document().slides().count(), 5);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(photosInCopiesOf(show), QList<int>{5}) << "it is that of the window now";
    EXPECT_EQ(photosIn(show), 2);
    answerNext(QMessageBox::AcceptRole);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(photosIn(show), 5);
    EXPECT_EQ(Autosave::copiesOf(show), QStringList());
}

TEST_F(RecoveryTest, WhoeverRefusesACopyIsOfferedTheOneBefore) {
    crash(2);
    crash(5);
    ASSERT_EQ(photosInCopiesOf(show), (QList<int>{6, 3}));
    MainWindow window;
    window.show();
    answerNext(QMessageBox::DestructiveRole,
               [&](const QMessageBox&) { answerNext(QMessageBox::RejectRole); });
    window.openPaths({show});
    EXPECT_EQ(photosInCopiesOf(show), QList<int>{3});
    EXPECT_EQ(window.document().slides().count(), 1);
}

TEST_F(RecoveryTest, ACopyThatIsTakenStaysWhileNoOtherCanBeWritten) {
    crash(4);
    MainWindow window;
    window.show();
    {
        const FullDisk full(0);
        answerNext(QMessageBox::AcceptRole);
        window.openPaths({show});
    }
    EXPECT_EQ(window.document().slides().count(), 5);
    EXPECT_EQ(photosInCopiesOf(show), QList<int>{5});
    window.document().startNew();
}

TEST_F(RecoveryTest, AShowThatIsGoneIsRecoveredFromItsCopy) {
    crash(3);
    rememberShow(show);
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(folder.path(), link));
    ASSERT_TRUE(QFile::remove(show));
    EXPECT_TRUE(recentShows().contains(show));
    MainWindow window;
    window.show();
    QString told;
    answerNext(QMessageBox::RejectRole,
               [&](const QMessageBox& box) { told = box.informativeText(); });
    window.openPaths({link + QStringLiteral("/trip.vshow")});
    EXPECT_EQ(told, u"The show itself is no longer there.");
    EXPECT_EQ(window.document().slides().count(), 0);
    EXPECT_EQ(window.document().path(), QString());

    answerNext(QMessageBox::AcceptRole);
    window.openPaths({show});
    EXPECT_EQ(window.document().slides().count(), 4);
    EXPECT_EQ(window.document().path(), show);
    answerNext(QMessageBox::AcceptRole);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(photosIn(show), 4);
    EXPECT_EQ(Autosave::copiesOf(show), QStringList());
}

TEST_F(RecoveryTest, AShowIsNotAskedAboutTheCopyOfItsOwnWindow) {
    crash();
    Autosave::remove(Autosave::copiesOf(show).first());
    MainWindow window;
    window.show();
    window.openPaths({show});
    window.document().markDirty();
    makeCopy(window);
    ASSERT_EQ(Autosave::copiesOf(show).size(), 1);
    window.document().markClean();
    bool asked = false;
    QTimer::singleShot(0, [&] {
        if (QWidget* box = QApplication::activeModalWidget(); box != nullptr) {
            asked = true;
            box->close();
        }
    });
    window.openPaths({show});
    QTest::qWait(10);
    EXPECT_FALSE(asked);
    EXPECT_EQ(Autosave::copiesOf(show), QStringList());
}

/// Whether all texts of a box are shown as they are.
void expectPlain(const QMessageBox& box) {
    for (const QLabel* label : box.findChildren<QLabel*>()) {
        EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText)
            << qPrintable(label->text());
    }
}

TEST_F(RecoveryTest, QuestionsShowNamesAsTheyAre) {
    show = folder.filePath(QStringLiteral("x <b>y.vshow"));
    crash();
    MainWindow window;
    window.show();
    answerNext(QMessageBox::RejectRole, expectPlain);
    window.openPaths({show});
    window.document().markDirty();
    answerNext(QMessageBox::RejectRole, expectPlain);
    EXPECT_FALSE(window.close());
    answerNext(QMessageBox::AcceptRole, expectPlain);
    window.openPaths({folder.filePath(QStringLiteral("no <i>photo</i>.png"))});
    window.document().startNew();
    {
        ShowDocument other;
        QStringList problems;
        ASSERT_EQ(other.open(show, &problems), ShowDocument::OpenResult::Opened);
        answerNext(QMessageBox::NoRole, expectPlain);
        window.openPaths({show});
    }
    ASSERT_TRUE(QFile::remove(show));
    answerNext(QMessageBox::RejectRole, [](const QMessageBox& box) {
        EXPECT_FALSE(box.informativeText().isEmpty());
        expectPlain(box);
    });
    window.openPaths({show});

    window.document().addFiles({photo(QStringLiteral("i <b>j.png"))}, 0, 0);
    const QModelIndex first = window.document().slides().index(0);
    EXPECT_TRUE(first.data(Qt::ToolTipRole).toString().contains(u"i &lt;b&gt;j.png"));
    EXPECT_TRUE(first.data(Qt::AccessibleDescriptionRole).toString().endsWith(u"/i <b>j.png"));
    window.document().startNew();
}

}  // namespace
}  // namespace vellora::desktop
