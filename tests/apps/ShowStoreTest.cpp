#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImageProps.h>

#include "common/ShowStore.h"

namespace vellora::hostkit {
namespace {

/// A show whose first title tells how many album sprites its edits hold.
struct ShowStoreTest : testing::Test {
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("show.vshow"));
    QString error;

    bool save(int sprites) {
        CImageObj document;
        CDVDAlbumImage& album = *document.GetAlbum();
        for (int k = 0; k < sprites; ++k) {
            auto* clip = new CDVDImageProps(&album, QStringLiteral("clip.png"));
            album.AddSprite(clip, false);
        }
        Show show;
        show.photos.resize(1);
        show.photos[0].path = folder.filePath(QStringLiteral("a.jpg"));
        show.photos[0].title = QString::number(sprites);
        return saveShow(file, show, document, &error);
    }

    /// The number of sprites, when show and edits are there and agree; else -1.
    int load() {
        QStringList warnings;
        const auto show = readShow(file, &warnings, &error);
        if (!show || !warnings.isEmpty() || show->photos.size() != 1) {
            return -1;
        }
        CImageObj document;
        document.LoadFromXMLFile(show->projectPath);
        const int sprites = document.GetAlbum()->GetSprites().GetSize();
        return show->photos[0].title == QString::number(sprites) ? sprites : -1;
    }

    QStringList files() { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
};

TEST_F(ShowStoreTest, SwitchesFromOnePairToTheNext) {
    for (const int sprites : {3, 1, 0, 2}) {
        ASSERT_TRUE(save(sprites)) << qPrintable(error);
        EXPECT_EQ(load(), sprites);
        EXPECT_EQ(files().size(), 2) << qPrintable(files().join(QLatin1Char(' ')));
    }
}

TEST_F(ShowStoreTest, LeavesAProjectFileOfAnotherOriginAlone) {
    QFile other(folder.filePath(QStringLiteral("show.xml")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("mine");
    other.close();
    for (const int sprites : {1, 2, 3}) {
        ASSERT_TRUE(save(sprites));
        EXPECT_EQ(load(), sprites);
    }
    ASSERT_TRUE(other.open(QIODevice::ReadOnly));
    EXPECT_EQ(other.readAll(), "mine");
}

TEST_F(ShowStoreTest, LeavesTheProjectFilesOfOtherShowsAlone) {
    const QString own = file;
    file = folder.filePath(QStringLiteral("show.alt.vshow"));
    ASSERT_TRUE(save(4));  // in show.alt.xml
    file = own;
    ASSERT_TRUE(save(1));
    const QString copy = folder.filePath(QStringLiteral("copy.vshow"));
    ASSERT_TRUE(QFile::copy(file, copy));
    for (const int sprites : {2, 3, 5}) {
        ASSERT_TRUE(save(sprites));
        EXPECT_EQ(load(), sprites);
    }
    file = copy;
    EXPECT_EQ(load(), 1) << "a copy names the same project file";
    file = folder.filePath(QStringLiteral("show.alt.vshow"));
    EXPECT_EQ(load(), 4);
}

TEST_F(ShowStoreTest, ADamagedProjectFileIsToldAndNeverRemoved) {
    ASSERT_TRUE(save(2));
    const QString project = folder.filePath(QStringLiteral("show.xml"));
    QFile file(project);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.resize(file.size() / 2);
    file.close();
    Show show;
    show.projectPath = project;
    CImageObj document;
    EXPECT_FALSE(loadEdits(show, document).isEmpty());
    EXPECT_TRUE(document.GetAlbum()->GetSprites().IsEmpty());
    for (const int sprites : {1, 3, 2}) {
        ASSERT_TRUE(save(sprites));
        EXPECT_EQ(load(), sprites);
        EXPECT_TRUE(QFile::exists(project)) << "it may be repaired by hand";
    }
    show.projectPath = folder.filePath(QStringLiteral("none.xml"));
    EXPECT_TRUE(loadEdits(show, document).isEmpty()) << "a new show has no edits";
}

TEST_F(ShowStoreTest, AFailureLeavesTheOldPair) {
    ASSERT_TRUE(save(2));
    const QStringList before = files();
    // A folder in place of the project file cannot be replaced.
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("show.alt.xml/inside")));
    EXPECT_FALSE(save(4));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(load(), 2);
    EXPECT_EQ(files(), before);
}

TEST_F(ShowStoreTest, KilledAtAnyMomentLeavesOldOrNew) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int kKills = 200;  // each start of a process takes long there
#else
    constexpr int kKills = 1000;
#endif
    ASSERT_TRUE(save(1));
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(save(1));
    const std::chrono::duration<double, std::micro> oneSave =
        std::chrono::steady_clock::now() - start;
    std::mt19937 random(11);
    std::uniform_real_distribution moment(0.0, 4 * oneSave.count());
    int interrupted = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        std::array<int, 2> started{};
        ASSERT_EQ(pipe(started.data()), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(started[1]);
            for (int round = 0;; ++round) {
                save(1 + round % 5);
            }
        }
        close(started[1]);
        char none = 0;
        EXPECT_EQ(read(started[0], &none, 1), 0) << "the child runs";
        close(started[0]);
        std::this_thread::sleep_for(std::chrono::duration<double, std::micro>(moment(random)));
        ::kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        ASSERT_GE(load(), 1) << "kill " << kill << ": " << qPrintable(error) << ' '
                             << qPrintable(files().join(QLatin1Char(' ')));
        interrupted += files().size() > 2 ? 1 : 0;
        for (const QString& name : files()) {
            // What an interrupted save leaves beside the pair is a name of its own.
            if (name.contains(QStringLiteral(".vshow.")) || name.contains(QStringLiteral("tmp"))) {
                QFile::remove(folder.filePath(name));
            }
        }
    }
    EXPECT_GT(interrupted, 0) << "no kill met a save half way";
}

}  // namespace
}  // namespace vellora::hostkit
