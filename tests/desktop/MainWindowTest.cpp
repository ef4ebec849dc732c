#include <QAbstractButton>
#include <QAction>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "DesktopFixture.h"
#include "desktop/Autosave.h"
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

TEST_F(MainWindowTest, AsksBeforeChangesAreLost) {
    MainWindow window;
    window.show();
    window.openPaths({photo(QStringLiteral("one.png"))});
    EXPECT_EQ(window.document().slides().count(), 1);
    EXPECT_TRUE(window.isWindowModified());

    answerNext(QMessageBox::RejectRole);
    EXPECT_FALSE(window.close());
    answerNext(QMessageBox::DestructiveRole);
    EXPECT_TRUE(window.close());
}

TEST_F(MainWindowTest, OnlyWhatChangedInTheEditDialogIsAskedAbout) {
    const QString file = folder.filePath(QStringLiteral("show.vshow"));
    QString error;
    {
        ShowDocument document;
        document.addFiles({photo(QStringLiteral("one.png"))}, 0, 0);
        ASSERT_TRUE(document.save(file, &error)) << error.toStdString();
    }
    MainWindow window;
    window.show();
    window.openPaths({file});
    CDVDImage& image = *window.document().slides().slide(0)->node()->data->image;
    for (const bool changes : {false, true}) {
        QTimer::singleShot(100, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            EXPECT_TRUE(window.isWindowModified()) << "there may be an automatic copy";
            if (changes) {
                image.GetProcessor()->AddFilterToChain(CreateFilterByName(u"Grey"));
            }
            dialog->close();
        });
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_EQ(window.isWindowModified(), changes);
    }
    answerNext(QMessageBox::DestructiveRole);
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

TEST_F(MainWindowTest, AsksBeforeAShowThatChangedOnDiskIsReplaced) {
    const QString show = folder.filePath(QStringLiteral("album.vshow"));
    QString error;
    {
        ShowDocument document;
        slides(document, 2);
        ASSERT_TRUE(document.save(show, &error));
    }
    MainWindow window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.openPaths({show});
    window.openPaths({photo(QStringLiteral("more.png"))});
    QTest::qWait(10);
    ShowDocument other;
    QStringList problems;
    ASSERT_TRUE(other.import(show, {}, &problems));
    ASSERT_TRUE(other.saveCopy(show, &error));

    const auto photosOnDisk = [&] {
        const auto stored = hostkit::readShow(show, &problems, &error);
        return stored ? stored->photos.size() : 0;
    };
    answerNext(QMessageBox::RejectRole);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(photosOnDisk(), 2U);
    EXPECT_TRUE(window.isWindowModified());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    answerNext(QMessageBox::DestructiveRole);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(photosOnDisk(), 3U);
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(MainWindowTest, AutomaticCopiesRestWhileTheShowPlays) {
    MainWindow window;
    window.show();
    window.openPaths({photo(QStringLiteral("one.png")), photo(QStringLiteral("two.png"))});
    QPointer<Player> player = new Player(window.document().slides().slides(), 0, &window);
    player->show();
    Autosave& autosave = *window.findChild<Autosave*>();
    const auto copies = [] {
        return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                    QStringLiteral("/autosave"))
            .entryList({QStringLiteral("*.vshow")}, QDir::Files);
    };
    Q_EMIT autosave.due();
    EXPECT_EQ(copies(), QStringList());
    player->close();
    waitFor([&] { return player.isNull(); }, "the end of the slideshow");
    Q_EMIT autosave.due();
    EXPECT_EQ(copies().size(), 1);
    answerNext(QMessageBox::DestructiveRole);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(copies(), QStringList());
}

TEST_F(MainWindowTest, AnotherShowEndsTheSlideshow) {
    MainWindow window;
    window.show();
    const QString show = folder.filePath(QStringLiteral("album.vshow"));
    QString error;
    {
        ShowDocument document;
        slides(document, 4);
        ASSERT_TRUE(document.save(show, &error));
    }
    for (int round = 0; round < 6; ++round) {
        window.openPaths({show});
        const QPointer<Player> player = new Player(window.document().slides().slides(), 0, &window);
        player->resize(300, 200);
        player->show();
        QTest::qWait(round * 5);
        window.openPaths({show});
        EXPECT_TRUE(player.isNull());
    }
}

TEST_F(MainWindowTest, OnlyTheSlidesThatAreSeenGetThumbnails) {
    MainWindow window;
    window.show();
    QStringList photos;
    for (int k = 0; k < 200; ++k) {
        photos.append(photo(QStringLiteral("p%1.png").arg(k), {8, 6}));
    }
    window.openPaths(photos);
    SlideModel& slides = window.document().slides();
    const QModelIndex last = slides.index(199);
    waitFor([&] { return window.view().visualRect(last).isValid(); }, "the cards in their places");
    const SlideView::Rows top = window.view().visibleRows();
    EXPECT_EQ(top.begin, 0);
    EXPECT_GT(top.end, 4);
    EXPECT_LT(top.end, 60);
    window.view().scrollToBottom();
    const SlideView::Rows bottom = window.view().visibleRows();
    EXPECT_EQ(bottom.end, 200);
    EXPECT_GT(bottom.begin, 140);
    EXPECT_GT(bottom.end, bottom.begin + 4);
    Thumbnails& thumbnails = *window.findChild<Thumbnails*>();
    waitFor([&] { return !thumbnails.picture(slides.slide(199)).isNull(); }, "the last thumbnail");
    answerNext(QMessageBox::DestructiveRole);
    EXPECT_TRUE(window.close());
}

TEST_F(MainWindowTest, APhotoThatWentIsShownAsMissing) {
    ShowDocument document;
    const auto all = slides(document, 1);
    QFile::remove(all[0]->path());
    EXPECT_FALSE(all[0]->isMissing()) << "nobody has looked";
    Thumbnails thumbnails;
    thumbnails.picture(all[0]);
    waitFor([&] { return all[0]->isMissing(); }, "the discovery");
}

TEST_F(MainWindowTest, AnEmptyShowCannotBeExportedOrPlayed) {
    MainWindow window;
    window.show();
    const auto isEnabled = [&window](const QKeySequence& key) {
        for (const QAction* action : window.findChildren<QAction*>()) {
            if (action->shortcut() == key) {
                return action->isEnabled();
            }
        }
        ADD_FAILURE() << "no action for " << qPrintable(key.toString());
        return false;
    };
    const QKeySequence exporting(Qt::CTRL | Qt::Key_E);
    const QKeySequence playing(Qt::Key_F5);
    EXPECT_FALSE(isEnabled(exporting));
    EXPECT_FALSE(isEnabled(playing));
    window.openPaths({photo(QStringLiteral("one.png"))});
    EXPECT_TRUE(isEnabled(exporting));
    EXPECT_TRUE(isEnabled(playing));
    window.document().slides().remove({0});
    EXPECT_FALSE(isEnabled(exporting));
    EXPECT_FALSE(isEnabled(playing));
    window.document().startNew();
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
