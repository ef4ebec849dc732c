// The desktop program as a user meets it: keys, mistakes taken back, disks that fail.

#include <QDropEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "DesktopFixture.h"
#include "desktop/MainWindow.h"
#include "desktop/Preferences.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideView.h"

namespace vellora::desktop {
namespace {

struct UserTest : DesktopTest {
    QStringList photos(int count, const QString& where = {}) {
        QStringList paths;
        for (int k = 0; k < count; ++k) {
            paths.append(photo(QStringLiteral("%1p%2.png").arg(where).arg(k)));
        }
        return paths;
    }

    /// The second letters of the captions.
    static QString orderOf(const SlideModel& slides) {
        QString result;
        for (const SlidePtr& slide : slides.slides()) {
            result += slide->caption().mid(1, 1);
        }
        return result;
    }

    static void addSprite(const SlidePtr& slide) {
        CDVDImage& image = *slide->node()->data->image;
        image.AddSprite(new CDVDImageProps(&image, QStringLiteral("clip.png")), false);
    }
};

TEST_F(UserTest, ChangesOfTheListAreTakenBack) {
    ShowDocument document;
    SlideModel& slides = document.slides();
    document.addFiles(photos(6), 0, 0);
    addSprite(slides.slide(4));
    slides.remove({1, 2, 4});
    EXPECT_EQ(orderOf(slides), u"035");
    slides.moveTo({2}, 0);
    EXPECT_EQ(orderOf(slides), u"503");
    document.addFiles({photo(QStringLiteral("p9.png"))}, 1, 0);
    EXPECT_EQ(orderOf(slides), u"5903");

    QUndoStack& history = slides.history();
    EXPECT_EQ(history.undoText(), u"Add photos");
    history.undo();
    history.undo();
    EXPECT_EQ(orderOf(slides), u"035");
    history.undo();
    EXPECT_EQ(orderOf(slides), u"012345");
    EXPECT_EQ(slides.slide(4)->node()->data->image->GetSprites().GetSize(), 1) << "its edits";
    history.redo();
    history.redo();
    history.redo();
    EXPECT_EQ(orderOf(slides), u"5903");
    history.setIndex(1);
    EXPECT_EQ(orderOf(slides), u"012345");

    const CPtrList* list = slides.document().GetProjectPtrList();
    POSITION position = list->GetHeadPosition();
    for (const SlidePtr& slide : slides.slides()) {
        ASSERT_NE(position, nullptr);
        EXPECT_EQ(list->GetNext(position)->photo, &slide->record()) << "the module's own list";
    }
    EXPECT_EQ(position, nullptr);

    QString error;
    const QString path = folder.filePath(QStringLiteral("trip.vshow"));
    ASSERT_TRUE(document.save(path, &error)) << qPrintable(error);
    history.undo();
    EXPECT_TRUE(document.isDirty());
    QStringList problems;
    ASSERT_EQ(document.open(path, &problems), ShowDocument::OpenResult::Opened);
    EXPECT_FALSE(history.canUndo()) << "another show, another history";
}

TEST_F(UserTest, TheKeyboardSuffices) {
    MainWindow window;
    window.show();
    window.openPaths(photos(5));
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(window.view().hasFocus());
    SlideModel& slides = window.document().slides();
    EXPECT_EQ(window.view().selectedRows().size(), 5) << "what was added is selected";
    QTest::keyClick(&window.view(), Qt::Key_Right);
    QTest::keyClick(&window.view(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(orderOf(slides), u"02134");
    EXPECT_EQ(window.view().selectedRows(), QList<int>{2});
    QTest::keyClick(&window.view(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(orderOf(slides), u"01234");
    QTest::keyClick(&window.view(), Qt::Key_Delete);
    QTest::keyClick(&window.view(), Qt::Key_Delete);
    EXPECT_EQ(orderOf(slides), u"034") << "the next photo is selected after each";
    QTest::keyClick(&window.view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(orderOf(slides), u"0234");
    QTest::keyClick(&window.view(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(orderOf(slides), u"034");
    QTest::keyClick(&window.view(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&window.view(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(orderOf(slides), u"034");
    QTest::keyClick(&window.view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(orderOf(slides), u"0234");
    QTest::keyClick(&window.view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(window.view().selectedRows().size(), 4);
    QTest::keyClick(&window.view(), Qt::Key_Delete);
    EXPECT_EQ(slides.count(), 0);
    window.document().startNew();
}

TEST_F(UserTest, AFullDiskLosesNothing) {
    MainWindow window;
    window.show();
    const QString path = folder.filePath(QStringLiteral("trip.vshow"));
    window.openPaths(photos(3));
    QString error;
    ASSERT_TRUE(window.document().save(path, &error)) << qPrintable(error);
    const QStringList before = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
    addSprite(window.document().slides().slide(0));
    window.document().markDirty();
    for (const rlim_t bytes : {0, 100, 700}) {
        const FullDisk full(bytes);
        EXPECT_FALSE(window.document().save(path, &error)) << bytes;
        EXPECT_FALSE(error.isEmpty());
        EXPECT_TRUE(window.isWindowModified());
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), before);
    }
    ASSERT_TRUE(window.document().save(path, &error)) << "when there is room again";
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(UserTest, ASaveThatFailsSaysWhyAndOffersAnotherPlace) {
    MainWindow window;
    window.show();
    const QString trip = folder.filePath(QStringLiteral("usb/trip.vshow"));
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("usb")));
    window.openPaths(photos(1));
    QString error;
    ASSERT_TRUE(window.document().save(trip, &error)) << qPrintable(error);
    window.document().markDirty();
    ASSERT_TRUE(QDir(folder.filePath(QStringLiteral("usb"))).removeRecursively());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QString information;
    answerNext(QMessageBox::RejectRole,
               [&](const QMessageBox& box) { information = box.informativeText(); });
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(information.contains(QStringLiteral("there is no folder")))
        << qPrintable(information);
    EXPECT_TRUE(window.isWindowModified());
    window.document().startNew();
}

TEST_F(UserTest, ANameWithoutEndingReplacesNothingUnasked) {
    MainWindow window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.openPaths(photos(1));
    const QString other = folder.filePath(QStringLiteral("other.vshow"));
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    bool asked = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        QTimer::singleShot(0, [&asked] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            asked = true;
            box->button(QMessageBox::No)->click();
        });
        dialog->selectFile(other.chopped(6));
        static_cast<QDialog*>(dialog)->accept();
    });
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(asked);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(QFileInfo(other).size(), 8);
    window.document().startNew();
}

TEST_F(UserTest, AShowLockedByAnotherComputerNamesIt) {
    const QString path = folder.filePath(QStringLiteral("trip.vshow"));
    QString error;
    {
        ShowDocument document;
        document.addFiles(photos(1), 0, 0);
        ASSERT_TRUE(document.save(path, &error));
    }
    EXPECT_EQ(ShowDocument::lockingComputer(path), QString());
    QFile lock(folder.filePath(QStringLiteral(".trip.vshow.lock")));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write("12345\nvellora-desktop\nelsewhere\n\n\n");
    lock.close();
    ShowDocument document;
    QStringList problems;
    EXPECT_EQ(document.open(path, &problems), ShowDocument::OpenResult::LockedByOther);
    EXPECT_EQ(ShowDocument::lockingComputer(path), u"elsewhere");
}

TEST_F(UserTest, ShowsOfADiskThatIsAwayAreRemembered) {
    const QString here = photo(QStringLiteral("here.png"));
    const QString away = folder.filePath(QStringLiteral("away.vshow"));
    rememberShow(away);
    rememberShow(here);
    EXPECT_EQ(recentShows().first(), here);
    EXPECT_FALSE(recentShows().contains(away));
    photo(QStringLiteral("away.png"));
    ASSERT_TRUE(QFile::rename(folder.filePath(QStringLiteral("away.png")), away));
    EXPECT_TRUE(recentShows().contains(away));
}

TEST_F(UserTest, TheTitleShowsTheNameAsItIs) {
    MainWindow window;
    QString error;
    ASSERT_TRUE(window.document().save(folder.filePath(QStringLiteral("a[*]b.vshow")), &error));
    EXPECT_EQ(window.windowTitle(), u"a[*][*]b[*] - Vellora");
}

TEST_F(UserTest, FilesThatCannotBeNamedAreTold) {
    MainWindow window;
    window.show();
    const QString tour = folder.filePath(QStringLiteral("tour"));
    ASSERT_TRUE(QDir(tour).mkpath(QStringLiteral(".hidden")));
    photo(QStringLiteral("tour/fine.png"));
    const std::string start = QFile::encodeName(tour).toStdString();
    const std::vector<std::string> nameless{start + "/caf\xe9.png", start + "/.hidden/\xe9.png"};
    for (const std::string& file : nameless) {
        std::ofstream(file) << "a photo";
    }
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(tour), QUrl(QStringLiteral("https://localhost/web.png")),
                  QUrl(QStringLiteral("file:///d%E9.png"))});
    QString told;
    answerNext(QMessageBox::AcceptRole,
               [&](const QMessageBox& box) { told = box.informativeText(); });
    window.document().slides().dropMimeData(&data, Qt::CopyAction, 0, 0, {});
    EXPECT_EQ(told, QString::fromUtf8("https://localhost/web.png\nd\uFFFD.png\ncaf\uFFFD.png"));
    EXPECT_EQ(window.document().slides().count(), 1);
    window.document().startNew();
    for (const std::string& file : nameless) {
        std::remove(file.c_str());
    }
}

TEST_F(UserTest, ADragShowsWhereItGoes) {
    MainWindow window;
    window.show();
    window.openPaths(photos(3));
    waitFor([&] { return window.view().visualRect(window.document().slides().index(2)).isValid(); },
            "the cards");
    QWidget* wall = window.view().viewport();
    const QRect second = window.view().visualRect(window.document().slides().index(1));
    const QPoint at(second.left() + 20, second.center().y());
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(folder.filePath(QStringLiteral("p0.png")))});
    const QColor mark = window.view().palette().color(QPalette::Highlight);
    const auto hasMark = [&] {
        const QImage picture = wall->grab().toImage();
        for (int x = second.left() - 12; x < second.left() + 4; ++x) {
            if (picture.pixelColor(x, second.center().y()) == mark) {
                return true;
            }
        }
        return false;
    };
    window.view().clearSelection();
    EXPECT_FALSE(hasMark());
    QDragEnterEvent enter(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(wall, &enter);
    QDragMoveEvent move(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(wall, &move);
    EXPECT_TRUE(move.isAccepted());
    EXPECT_TRUE(hasMark());
    QDropEvent drop(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(wall, &drop);
    window.view().clearSelection();
    EXPECT_FALSE(hasMark());
    EXPECT_EQ(orderOf(window.document().slides()), u"0012");
}

}  // namespace
}  // namespace vellora::desktop
