#include <QFile>
#include <QMimeData>
#include <QSignalSpy>

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "DesktopFixture.h"
#include "desktop/Autosave.h"
#include "desktop/ShowDocument.h"

namespace vellora::desktop {
namespace {

struct ShowDocumentTest : DesktopTest {
    ShowDocument document;
    SlideModel& slides = document.slides();

    void addPhotos(int count) {
        QStringList paths;
        for (int k = 0; k < count; ++k) {
            paths.append(photo(QStringLiteral("p%1.png").arg(k)));
        }
        EXPECT_TRUE(document.addFiles(paths, slides.count(), 0).isEmpty());
    }

    /// The captions in order, and whether the module's list has the same order.
    QString order() {
        QString result;
        const CPtrList* list = slides.document().GetProjectPtrList();
        POSITION position = list->GetHeadPosition();
        for (const SlidePtr& slide : slides.slides()) {
            result += slide->caption().mid(1, 1);
            EXPECT_NE(position, nullptr);
            EXPECT_EQ(list->GetNext(position)->photo, &slide->record());
        }
        EXPECT_EQ(position, nullptr);
        return result;
    }

    [[nodiscard]] QStringList entriesOf(const QString& name) const {
        return QDir(folder.filePath(name)).entryList(QDir::AllEntries | QDir::Hidden);
    }

    void addSprite(int row) {
        CDVDImage& image = *slides.slide(row)->node()->data->image;
        image.AddSprite(new CDVDImageProps(&image, QStringLiteral("clip.png")), false);
    }
    int sprites(int row) { return slides.slide(row)->node()->data->image->GetSprites().GetSize(); }
};

TEST_F(ShowDocumentTest, KeepsTheModulesListInStep) {
    addPhotos(5);
    EXPECT_EQ(order(), QStringLiteral("01234"));
    slides.moveTo({1, 3}, 0);
    EXPECT_EQ(order(), QStringLiteral("13024"));
    slides.moveTo({0, 1}, 5);
    EXPECT_EQ(order(), QStringLiteral("02413"));
    slides.moveTo({1, 2}, 2);
    EXPECT_EQ(order(), QStringLiteral("02413")) << "dropped onto itself";
    slides.moveTo({-1, 99}, 2);
    slides.remove({0, 4, 4, 77});
    EXPECT_EQ(order(), QStringLiteral("241"));
    document.addFiles({photo(QStringLiteral("p9.png"))}, 1, 0);
    EXPECT_EQ(order(), QStringLiteral("2941"));
}

TEST_F(ShowDocumentTest, MovesRowsByDragAndDrop) {
    addPhotos(4);
    const QPersistentModelIndex second = slides.index(1);
    const std::unique_ptr<QMimeData> data(slides.mimeData({slides.index(2), slides.index(3)}));
    slides.dropMimeData(data.get(), Qt::MoveAction, 0, 0, {});
    EXPECT_EQ(order(), QStringLiteral("2301"));
    EXPECT_EQ(second.row(), 3) << "selections follow their slides";

    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(folder.filePath(QStringLiteral("p1.png")))});
    QSignalSpy dropped(&slides, &SlideModel::filesDropped);
    EXPECT_TRUE(slides.dropMimeData(&files, Qt::CopyAction, 2, 0, {}));
    ASSERT_EQ(dropped.size(), 1);
    EXPECT_EQ(dropped[0][1].toInt(), 2);
}

TEST_F(ShowDocumentTest, RowsOfAnotherShowAreNotTaken) {
    addPhotos(3);
    ShowDocument other;
    other.addFiles({photo(QStringLiteral("q0.png")), photo(QStringLiteral("q1.png"))}, 0, 0);
    const std::unique_ptr<QMimeData> theirs(other.slides().mimeData({other.slides().index(0)}));
    const std::unique_ptr<QMimeData> ours(slides.mimeData({slides.index(0)}));
    QMimeData unmarked;
    unmarked.setData(ours->formats().first(), QByteArrayLiteral("0 "));
    for (const QMimeData* foreign : {theirs.get(), &unmarked}) {
        EXPECT_FALSE(slides.canDropMimeData(foreign, Qt::MoveAction, 3, 0, {}));
        EXPECT_FALSE(slides.dropMimeData(foreign, Qt::MoveAction, 3, 0, {}));
        EXPECT_EQ(order(), QStringLiteral("012"));
    }
    EXPECT_TRUE(slides.canDropMimeData(ours.get(), Qt::MoveAction, 3, 0, {}));
    slides.dropMimeData(ours.get(), Qt::MoveAction, 3, 0, {});
    EXPECT_EQ(order(), QStringLiteral("120"));
}

TEST_F(ShowDocumentTest, SavesAndOpensWithEdits) {
    addPhotos(3);
    addSprite(1);
    slides.slide(2)->record().rotation = 90;
    EXPECT_TRUE(document.isDirty());
    QString error;
    const QString path = folder.filePath(QStringLiteral("trip.vshow"));
    ASSERT_TRUE(document.save(path, &error)) << qPrintable(error);
    EXPECT_FALSE(document.isDirty());

    ShowDocument other;
    QStringList problems;
    EXPECT_EQ(other.open(path, &problems), ShowDocument::OpenResult::LockedByOther);
    EXPECT_TRUE(other.path().isEmpty());
    document.startNew();
    ASSERT_EQ(other.open(path, &problems), ShowDocument::OpenResult::Opened)
        << qPrintable(problems.join(QLatin1Char('\n')));
    EXPECT_EQ(other.slides().count(), 3);
    EXPECT_EQ(other.slides().slide(2)->record().rotation, 90);
    EXPECT_EQ(other.slides().slide(1)->node()->data->image->GetSprites().GetSize(), 1);
}

TEST_F(ShowDocumentTest, AFailedOpenKeepsThePresentShow) {
    addPhotos(2);
    QStringList problems;
    EXPECT_EQ(document.open(folder.filePath(QStringLiteral("no.vshow")), &problems),
              ShowDocument::OpenResult::Failed);
    EXPECT_FALSE(problems.isEmpty());
    EXPECT_EQ(slides.count(), 2);
    QString error;
    EXPECT_FALSE(document.save(folder.filePath(QStringLiteral("no/such.vshow")), &error));
    EXPECT_TRUE(document.isDirty());
}

TEST_F(ShowDocumentTest, RelocatesAMissingPhotoWithItsEdits) {
    addPhotos(1);
    addSprite(0);
    ASSERT_TRUE(QFile::remove(slides.slide(0)->path()));
    slides.slide(0)->checkFile();
    EXPECT_TRUE(slides.slide(0)->isMissing());
    slides.relocate(0, photo(QStringLiteral("moved.png")));
    EXPECT_FALSE(slides.slide(0)->isMissing());
    EXPECT_EQ(slides.slide(0)->caption(), QStringLiteral("moved.png"));
    EXPECT_EQ(sprites(0), 1);
}

TEST_F(ShowDocumentTest, FindsTheOtherPhotosOfAFolderThatWasMoved) {
    QDir(folder.path()).mkpath(QStringLiteral("old/sub"));
    document.addFiles({photo(QStringLiteral("old/sub/a.png")), photo(QStringLiteral("old/b.png")),
                       photo(QStringLiteral("old/c.png")), photo(QStringLiteral("stays.png"))},
                      0, 0);
    ASSERT_TRUE(QDir(folder.path()).rename(QStringLiteral("old"), QStringLiteral("new")));
    QFile::remove(folder.filePath(QStringLiteral("new/c.png")));
    for (const SlidePtr& slide : slides.slides()) {
        slide->checkFile();
    }
    EXPECT_EQ(slides.relocate(1, folder.filePath(QStringLiteral("new/b.png"))), (QList<int>{1, 0}));
    EXPECT_EQ(slides.slide(0)->path(), folder.filePath(QStringLiteral("new/sub/a.png")));
    EXPECT_TRUE(slides.slide(2)->isMissing());
    EXPECT_EQ(slides.slide(3)->path(), folder.filePath(QStringLiteral("stays.png")));
    EXPECT_EQ(slides.relocate(2, folder.filePath(QStringLiteral("stays.png"))), QList<int>{2});
}

TEST_F(ShowDocumentTest, AMovedShowFindsThePhotosThatMovedAlong) {
    QDir(folder.path()).mkpath(QStringLiteral("trip/photos"));
    const QString left = photo(QStringLiteral("left.png"));
    document.addFiles({photo(QStringLiteral("trip/photos/a.png")), left}, 0, 0);
    addSprite(1);
    QString error;
    ASSERT_TRUE(document.save(folder.filePath(QStringLiteral("trip/trip.vshow")), &error));
    document.startNew();
    QDir(folder.path()).mkpath(QStringLiteral("far/away"));
    ASSERT_TRUE(
        QDir(folder.path()).rename(QStringLiteral("trip"), QStringLiteral("far/away/trip")));
    QStringList problems;
    ASSERT_EQ(document.open(folder.filePath(QStringLiteral("far/away/trip/trip.vshow")), &problems),
              ShowDocument::OpenResult::Opened);
    EXPECT_EQ(problems, QStringList());
    EXPECT_FALSE(slides.slide(0)->isMissing());
    EXPECT_TRUE(slides.slide(1)->isMissing());
    slides.relocate(1, left);
    EXPECT_FALSE(slides.slide(1)->isMissing());
    EXPECT_EQ(sprites(1), 1) << "its edits were kept";
}

TEST_F(ShowDocumentTest, NoticesThatSomeoneElseSavedTheShow) {
    addPhotos(2);
    const QString path = folder.filePath(QStringLiteral("trip.vshow"));
    QString error;
    ASSERT_TRUE(document.save(path, &error));
    EXPECT_FALSE(document.isChangedOnDisk());
    QTest::qWait(10);
    {
        // Another program that knows nothing of the lock.
        ShowDocument other;
        QStringList problems;
        ASSERT_TRUE(other.import(path, {}, &problems));
        ASSERT_TRUE(other.saveCopy(path, &error));
    }
    document.markDirty();
    EXPECT_TRUE(document.isChangedOnDisk());
    ASSERT_TRUE(document.save(path, &error));
    EXPECT_FALSE(document.isChangedOnDisk());
    QFile::remove(path);
    EXPECT_FALSE(document.isChangedOnDisk()) << "nothing is lost by writing it again";
}

TEST_F(ShowDocumentTest, ADiskThatTakesNothingKeepsTheOldShow) {
    const SmallDisk disk(folder.filePath(QStringLiteral("disk")));
    if (!disk.isThere()) {
        GTEST_SKIP() << "no small disk can be made here";
    }
    addPhotos(2);
    const QString path = folder.filePath(QStringLiteral("disk/trip.vshow"));
    QString error;
    ASSERT_TRUE(document.save(path, &error)) << qPrintable(error);
    const QStringList before = entriesOf(QStringLiteral("disk"));

    QStringList many;
    for (int k = 0; k < 2000; ++k) {
        many.append(slides.slide(0)->path());
    }
    document.addFiles(many, 2, 0);
    EXPECT_FALSE(document.save(path, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_TRUE(document.isDirty());
    EXPECT_EQ(entriesOf(QStringLiteral("disk")), before);
    Autosave autosave(document);
    autosave.update();
    EXPECT_EQ(entriesOf(QStringLiteral("disk")), before);
    EXPECT_EQ(Autosave::copiesOf(path).size(), 1) << "kept among the program's own data";
    autosave.discard();

    ShowDocument other;
    QStringList problems;
    document.startNew();
    ASSERT_EQ(other.open(path, &problems), ShowDocument::OpenResult::Opened);
    EXPECT_EQ(problems, QStringList());
    EXPECT_EQ(other.slides().count(), 2);
}

TEST_F(ShowDocumentTest, AReadOnlyShowIsOpenedAndSavedElsewhere) {
    SmallDisk disk(folder.filePath(QStringLiteral("disk")));
    if (!disk.isThere()) {
        GTEST_SKIP() << "no small disk can be made here";
    }
    addPhotos(2);
    const QString path = folder.filePath(QStringLiteral("disk/trip.vshow"));
    QString error;
    ASSERT_TRUE(document.save(path, &error)) << qPrintable(error);
    document.startNew();
    ASSERT_TRUE(disk.setReadOnly(true));
    QStringList problems;
    ASSERT_EQ(document.open(path, &problems), ShowDocument::OpenResult::Opened);
    EXPECT_EQ(problems, QStringList());
    addSprite(0);
    document.markDirty();
    EXPECT_FALSE(document.save(path, &error));
    EXPECT_EQ(document.path(), path);
    {
        Autosave autosave(document);
        autosave.update();
        EXPECT_EQ(Autosave::copiesOf(path).size(), 1) << "kept among the program's own data";
        autosave.discard();
    }
    EXPECT_TRUE(document.save(folder.filePath(QStringLiteral("mine.vshow")), &error));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(ShowDocumentTest, AddsFoldersAndNamesWhatIsNoPhoto) {
    QDir(folder.path()).mkpath(QStringLiteral("in/deep"));
    photo(QStringLiteral("in/b.png"));
    photo(QStringLiteral("in/deep/a.png"));
    QFile text(folder.filePath(QStringLiteral("in/notes.txt")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("hello");
    text.close();
    EXPECT_TRUE(document.addFiles({folder.filePath(QStringLiteral("in"))}, 0, 0x123456).isEmpty());
    EXPECT_EQ(slides.count(), 2);
    EXPECT_EQ(slides.slide(0)->record().background, 0x123456U);
    EXPECT_EQ(document.addFiles({text.fileName()}, 0, 0), QStringList{QStringLiteral("notes.txt")});
    EXPECT_EQ(slides.count(), 2);
}

TEST_F(ShowDocumentTest, AnAutomaticCopySurvivesACrash) {
    addPhotos(2);
    QString error;
    const QString path = folder.filePath(QStringLiteral("trip.vshow"));
    ASSERT_TRUE(document.save(path, &error));
    Autosave autosave(document);
    autosave.update();
    EXPECT_EQ(Autosave::copiesOf(path), QStringList()) << "nothing to keep";

    QTest::qWait(20);
    addSprite(0);
    document.markDirty();
    autosave.update();
    ASSERT_EQ(Autosave::copiesOf(path).size(), 1);
    const QString copy = Autosave::copiesOf(path).first();
    ShowDocument recovered;
    QStringList problems;
    ASSERT_TRUE(recovered.import(copy, path, &problems));
    EXPECT_TRUE(recovered.isDirty());
    EXPECT_EQ(recovered.path(), path);
    EXPECT_EQ(recovered.slides().slide(0)->node()->data->image->GetSprites().GetSize(), 1);
    EXPECT_EQ(recovered.slides().slide(1)->path(), slides.slide(1)->path());

    ASSERT_TRUE(document.save(path, &error));
    autosave.update();
    EXPECT_EQ(Autosave::copiesOf(path), QStringList());
    EXPECT_EQ(
        QDir(folder.path()).entryList({QStringLiteral("*autosave*")}, QDir::Files | QDir::Hidden),
        QStringList());
}

TEST_F(ShowDocumentTest, AShowThatWasNeverSavedIsOfferedAfterACrash) {
    addPhotos(1);
    {
        Autosave autosave(document);
        autosave.update();
        EXPECT_TRUE(Autosave::orphans().isEmpty()) << "its program still runs";
    }
    const QStringList orphans = Autosave::orphans();
    ASSERT_EQ(orphans.size(), 1);
    ShowDocument recovered;
    QStringList problems;
    ASSERT_TRUE(recovered.import(orphans.first(), {}, &problems));
    EXPECT_EQ(recovered.slides().count(), 1);
    Autosave::remove(orphans.first());
    EXPECT_TRUE(Autosave::orphans().isEmpty());
}

}  // namespace
}  // namespace vellora::desktop
