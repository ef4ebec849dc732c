#include <QAbstractButton>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImageProps.h>

#include "DesktopFixture.h"
#include "desktop/ExportJob.h"
#include "desktop/MainWindow.h"
#include "desktop/Player.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideView.h"
#include "desktop/Thumbnails.h"

namespace vellora::desktop {
namespace {

struct MainWindowTest : DesktopTest {
    std::vector<SlidePtr> slides(ShowDocument& document, int count) {
        QStringList paths;
        for (int k = 0; k < count; ++k) {
            paths.append(photo(QStringLiteral("s%1.png").arg(k), {120, 80},
                               QColor::fromHsv(k * 50 % 360, 200, 200)));
        }
        document.addFiles(paths, 0, 0);
        return document.slides().slides();
    }
};

TEST_F(MainWindowTest, MakesThumbnailsWhenTheyAreLookedAt) {
    ShowDocument document;
    const auto all = slides(document, 3);
    Thumbnails thumbnails;
    thumbnails.setBox({60, 60});
    EXPECT_TRUE(thumbnails.picture(all[1]).isNull());
    waitFor([&] { return !thumbnails.picture(all[1]).isNull(); }, "a thumbnail");
    EXPECT_EQ(thumbnails.picture(all[1]).size(), QSize(60, 40));

    // While the queue is paused nothing is rendered; the old picture stays.
    {
        const RenderQueue::Pause pause(thumbnails.queue());
        all[1]->record().rotation = 90;
        thumbnails.invalidate(all[1]->id());
        EXPECT_EQ(thumbnails.picture(all[1]).size(), QSize(60, 40));
        QTest::qWait(50);
        EXPECT_EQ(thumbnails.picture(all[1]).size(), QSize(60, 40));
    }
    waitFor([&] { return thumbnails.picture(all[1]).size() == QSize(40, 60); }, "the new one");

    QFile::remove(all[2]->path());
    QFile broken(all[2]->path());
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no picture");
    broken.close();
    EXPECT_TRUE(thumbnails.picture(all[2]).isNull());
    waitFor([&] { return thumbnails.isUnreadable(all[2]->id()); }, "the verdict");
}

TEST_F(MainWindowTest, ExportsWithUniqueNamesAndNamesFailures) {
    ShowDocument document;
    auto all = slides(document, 3);
    QFile::remove(all[1]->path());
    ExportOptions options;
    options.folder = folder.filePath(QStringLiteral("out"));
    ASSERT_TRUE(QDir().mkpath(options.folder));
    options.size = {60, 60};
    QFile taken(options.folder + QStringLiteral("/1-s0.jpg"));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    taken.close();

    ExportJob job(document.slides().document(), all, options, nullptr);
    QSignalSpy finished(&job, &ExportJob::finished);
    job.start();
    waitFor([&] { return finished.size() == 1; }, "the export");
    EXPECT_EQ(finished[0][0].toInt(), 2);
    EXPECT_TRUE(finished[0][1].toStringList().first().startsWith(QStringLiteral("s1.png: ")));
    EXPECT_FALSE(finished[0][2].toBool());
    EXPECT_EQ(QImage(options.folder + QStringLiteral("/1-s0-2.jpg")).size(), QSize(60, 40));
    EXPECT_EQ(QImage(options.folder + QStringLiteral("/3-s2.jpg")).size(), QSize(60, 40));
    EXPECT_EQ(QDir(options.folder).entryList(QDir::Files).size(), 3);
}

TEST_F(MainWindowTest, ACancelledExportLeavesNoHalfFile) {
    ShowDocument document;
    slides(document, 1);
    std::vector<SlidePtr> all;
    for (int k = 0; k < 40; ++k) {
        document.addFiles({photo(QStringLiteral("big%1.png").arg(k), {900, 700})}, 0, 0);
    }
    all = document.slides().slides();
    ExportOptions options;
    options.folder = folder.filePath(QStringLiteral("out"));
    ASSERT_TRUE(QDir().mkpath(options.folder));
    ExportJob job(document.slides().document(), all, options, nullptr);
    QSignalSpy working(&job, &ExportJob::working);
    QSignalSpy finished(&job, &ExportJob::finished);
    job.start();
    waitFor([&] { return working.size() >= 3; }, "some pictures");
    job.cancel();
    waitFor([&] { return finished.size() == 1; }, "the end");
    EXPECT_TRUE(finished[0][2].toBool());
    const QStringList files = QDir(options.folder).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(files.size(), finished[0][0].toInt());
    for (const QString& name : files) {
        EXPECT_EQ(QImage(options.folder + QLatin1Char('/') + name).size(), QSize(900, 700));
    }
}

TEST_F(MainWindowTest, ThePlayerFollowsTheKeys) {
    ShowDocument document;
    const auto all = slides(document, 3);
    auto* player = new Player(all, 0, nullptr);
    const QPointer<Player> alive(player);
    player->resize(300, 200);
    player->show();
    QTest::keyClick(player, Qt::Key_Right);
    EXPECT_EQ(player->current(), 1);
    QTest::keyClick(player, Qt::Key_End);
    QTest::keyClick(player, Qt::Key_Right);
    EXPECT_EQ(player->current(), 2) << "there is none behind the last";
    QTest::keyClick(player, Qt::Key_Space);
    EXPECT_TRUE(player->isHalted());
    QTest::keyClick(player, Qt::Key_Home);
    EXPECT_EQ(player->current(), 0);
    waitFor([&] { return player->grab().toImage().pixelColor(150, 100).saturation() > 150; },
            "the photo on the screen");
    QTest::keyClick(player, Qt::Key_Escape);
    waitFor([&] { return alive.isNull(); }, "the end");
}

TEST_F(MainWindowTest, AsksBeforeChangesAreLost) {
    MainWindow window;
    window.show();
    window.openPaths({photo(QStringLiteral("one.png"))});
    EXPECT_EQ(window.document().slides().count(), 1);
    EXPECT_TRUE(window.isWindowModified());

    const auto answer = [](QMessageBox::StandardButton button) {
        QTimer::singleShot(0, [button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            box->button(button)->click();
        });
    };
    answer(QMessageBox::Cancel);
    EXPECT_FALSE(window.close());
    answer(QMessageBox::Discard);
    EXPECT_TRUE(window.close());
}

TEST_F(MainWindowTest, AShowIsExchangedWhileItsThumbnailsAreMade) {
    const QString show = folder.filePath(QStringLiteral("album.vshow"));
    {
        ShowDocument document;
        slides(document, 12);
        CDVDAlbumImage& album = *document.slides().document().GetAlbum();
        for (int k = 0; k < 8; ++k) {
            album.AddSprite(new CDVDImageProps(&album, photo(QStringLiteral("clip.png"))), false);
        }
        QString error;
        ASSERT_TRUE(document.save(show, &error)) << qPrintable(error);
    }
    MainWindow window;
    window.show();
    // The album's sprites are deleted each time; the sanitizers watch those who draw them.
    for (int round = 0; round < 15; ++round) {
        window.openPaths({show});
        QTest::qWait(8);
    }
    EXPECT_EQ(window.document().slides().count(), 12);
    EXPECT_EQ(window.document().slides().document().GetAlbum()->GetSprites().GetSize(), 8);
}

TEST_F(MainWindowTest, RemovesTheSelectedPhotos) {
    MainWindow window;
    window.show();
    window.openPaths({photo(QStringLiteral("one.png")), photo(QStringLiteral("two.png")),
                      photo(QStringLiteral("three.png"))});
    window.view().selectionModel()->select(window.document().slides().index(1),
                                           QItemSelectionModel::ClearAndSelect);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window.view(), Qt::Key_Delete);
    ASSERT_EQ(window.document().slides().count(), 2);
    EXPECT_EQ(window.document().slides().slide(1)->caption(), QStringLiteral("three.png"));
}

}  // namespace
}  // namespace vellora::desktop
