#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>

#include <vellora/host/Language.h>

#include "ui/behaviour/SpriteSelection.h"
#include "ui/canvas/CanvasFixture.h"

namespace vellora {
namespace {

using SpriteEditingTest = test::CanvasFixture;

TEST_F(SpriteEditingTest, AnAlbumSpriteWinsOverAPhotoSprite) {
    CDVDImageProps* album = addAlbumClip({100, 100, 100, 100});
    CDVDImageProps* lower = addClip({120, 120, 100, 100});
    CDVDImageProps* upper = addClip({140, 140, 100, 100});
    click({150, 150});
    EXPECT_EQ(m_canvas.GetSelected(), album);
    click({210, 210});
    EXPECT_EQ(m_canvas.GetSelected(), upper);
    click({130, 210});
    EXPECT_EQ(m_canvas.GetSelected(), lower);
    EXPECT_EQ(m_spriteSelected, 3);
    EXPECT_EQ(m_textSelected, 0);
    click({500, 400});
    EXPECT_EQ(m_canvas.GetSelected(), nullptr);
    EXPECT_EQ(m_spriteSelected, 3);
    EXPECT_EQ(m_node->changed, 0) << "selecting is no edit";
}

TEST_F(SpriteEditingTest, DraggingMovesTheSpriteByItsGrabPoint) {
    CDVDImageProps* clip = addClip({100, 100, 100, 50});
    drag({150, 120}, {250, 90});
    EXPECT_EQ(clip->GetPosition(), QPoint(200, 70));
    EXPECT_EQ(clip->GetSize(), QSize(100, 50));
    EXPECT_EQ(m_node->changed, 1);
    // The button is up: the mouse moves nothing any more.
    move({10, 10}, Qt::NoButton);
    EXPECT_EQ(clip->GetPosition(), QPoint(200, 70));
}

TEST_F(SpriteEditingTest, AHandleResizesAClipInItsProportions) {
    CDVDImageProps* clip = addClip({100, 100, 100, 50});
    drag({200, 150}, {300, 150});
    EXPECT_EQ(clip->GetPosition(), QPoint(100, 100));
    EXPECT_EQ(clip->GetSize(), QSize(200, 100));
    drag({100, 100}, {150, 200});
    EXPECT_EQ(clip->GetPosition(), QPoint(150, 125));
    EXPECT_EQ(clip->GetSize(), QSize(150, 75));
    EXPECT_EQ(m_node->changed, 1);
}

TEST_F(SpriteEditingTest, ADragWhoseReleaseWentElsewhereEnds) {
    CDVDImageProps* clip = addClip({100, 100, 100, 50});
    press({150, 120});
    move({250, 120});
    move({300, 120}, Qt::NoButton);
    move({350, 120});
    EXPECT_EQ(clip->GetPosition(), QPoint(200, 100));
}

TEST_F(SpriteEditingTest, TheCursorTellsWhatADragWouldDo) {
    addClip({100, 100, 100, 50});
    move({150, 120}, Qt::NoButton);
    EXPECT_EQ(m_canvas.cursor().shape(), Qt::SizeAllCursor);
    move({100, 100}, Qt::NoButton);
    EXPECT_EQ(m_canvas.cursor().shape(), Qt::SizeFDiagCursor);
    move({199, 100}, Qt::NoButton);
    EXPECT_EQ(m_canvas.cursor().shape(), Qt::SizeBDiagCursor);
    move({400, 400}, Qt::NoButton);
    EXPECT_EQ(m_canvas.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(SpriteEditingTest, PageKeysSelectFromSpriteToSprite) {
    key(Qt::Key_PageUp);
    EXPECT_EQ(m_canvas.GetSelected(), nullptr) << "there is none";
    // The album lies below whatever the photo has of its own.
    CDVDImageProps* lower = addClip({100, 100, 100, 50});
    CDVDImageText* upper = addText({300, 300}, QStringLiteral("Words"));
    CDVDImageProps* lowest = addAlbumClip({100, 100, 100, 50});
    key(Qt::Key_PageDown);
    EXPECT_EQ(m_canvas.GetSelected(), upper) << "from the top";
    EXPECT_EQ(m_canvas.accessibleDescription(), QStringLiteral("Words"));
    EXPECT_EQ(m_textSelected, 1);
    key(Qt::Key_PageDown);
    EXPECT_EQ(m_canvas.GetSelected(), lower) << "although another is in front of it";
    key(Qt::Key_PageDown);
    EXPECT_EQ(m_canvas.GetSelected(), lowest);
    key(Qt::Key_PageDown);
    EXPECT_EQ(m_canvas.GetSelected(), upper);
    key(Qt::Key_PageUp);
    EXPECT_EQ(m_canvas.GetSelected(), lowest);
    key(Qt::Key_PageUp);
    EXPECT_EQ(m_spriteSelected, 6);
    EXPECT_EQ(m_node->changed, 0) << "selecting is no edit";
    key(Qt::Key_Right);
    EXPECT_EQ(lower->GetPosition(), QPoint(101, 100));
    key(Qt::Key_Delete);
    EXPECT_EQ(m_canvas.GetSelected(), nullptr);
    EXPECT_TRUE(m_canvas.accessibleDescription().isEmpty());
    key(Qt::Key_PageUp);
    EXPECT_EQ(m_canvas.GetSelected(), lowest) << "from the bottom";
    key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(m_canvas.GetSelected(), lowest) << "that goes to another photo";
}

TEST_F(SpriteEditingTest, ArrowKeysNudge) {
    CDVDImageProps* clip = addClip({100, 100, 100, 50});
    key(Qt::Key_Right);
    EXPECT_EQ(clip->GetPosition(), QPoint(100, 100)) << "nothing is selected";
    click({150, 120});
    key(Qt::Key_Right);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(clip->GetPosition(), QPoint(101, 110));
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Up);
    EXPECT_EQ(clip->GetPosition(), QPoint(91, 109));
}

TEST_F(SpriteEditingTest, DeleteTakesThePhotosOrTheAlbumsSprite) {
    addClip({100, 100, 100, 50});
    addAlbumClip({300, 100, 100, 50});
    key(Qt::Key_Delete);
    EXPECT_EQ(m_albumChanged, 0) << "nothing is selected";
    click({150, 120});
    key(Qt::Key_Delete);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
    EXPECT_EQ(m_albumChanged, 1);
    click({350, 120});
    key(Qt::Key_Delete);
    EXPECT_TRUE(m_album.GetSprites().IsEmpty());
    EXPECT_EQ(m_albumChanged, 2);
    EXPECT_EQ(m_canvas.GetSelected(), nullptr);
}

TEST_F(SpriteEditingTest, CopiesArePastedAsThePhotosOwnAStepAside) {
    CDVDImageProps* album = addAlbumClip({100, 100, 100, 50});
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty()) << "nothing was copied";
    click({150, 120});
    key(Qt::Key_C, Qt::ControlModifier);
    album->SetSize(120, 60);
    key(Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(m_record->GetSprites().GetSize(), 2);
    const CDVDImageSprite* first = m_record->GetSprites().GetAt(0);
    const CDVDImageSprite* second = m_record->GetSprites().GetAt(1);
    EXPECT_EQ(first->GetPosition(), QPoint(120, 120));
    EXPECT_EQ(first->GetSize(), QSize(120, 60)) << "pasted as it is now";
    EXPECT_FALSE(first->GetAlbumFlag());
    EXPECT_EQ(second->GetPosition(), QPoint(140, 140));
    EXPECT_EQ(m_canvas.GetSelected(), second);
}

TEST_F(SpriteEditingTest, ACopySurvivesItsPhotoButNotItsDeletion) {
    addClip({100, 100, 100, 50});
    click({150, 120});
    key(Qt::Key_C, Qt::ControlModifier);
    open(Qt::black);
    key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(m_record->GetSprites().GetSize(), 1);
    EXPECT_EQ(m_record->GetSprites().GetAt(0)->GetPosition(), QPoint(120, 120));
    key(Qt::Key_C, Qt::ControlModifier);
    key(Qt::Key_Delete);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
}

TEST_F(SpriteEditingTest, CommandsReorderWithinTheSpritesOwnList) {
    CDVDImageProps* a = addClip({0, 100, 50, 50});
    CDVDImageProps* b = addClip({100, 100, 50, 50});
    CDVDImageProps* c = addClip({200, 100, 50, 50});
    const CDVDImageSpriteArray& list = m_record->GetSprites();
    m_canvas.Select(a);
    EXPECT_TRUE(m_canvas.IsCommandEnabled(kSpriteForward));
    EXPECT_FALSE(m_canvas.IsCommandEnabled(kSpriteBackward));
    EXPECT_FALSE(m_canvas.IsCommandEnabled(kSpriteToBack));
    m_canvas.Command(kSpriteForward);
    EXPECT_EQ(list.IndexOf(a), 1);
    m_canvas.Command(kSpriteToFront);
    EXPECT_EQ(list.IndexOf(a), 2);
    EXPECT_FALSE(m_canvas.IsCommandEnabled(kSpriteForward));
    EXPECT_FALSE(m_canvas.IsCommandEnabled(kSpriteToFront));
    m_canvas.Command(kSpriteBackward);
    EXPECT_EQ(list.IndexOf(a), 1);
    m_canvas.Command(kSpriteToBack);
    EXPECT_EQ(list.IndexOf(a), 0);
    EXPECT_EQ(list.IndexOf(b), 1);
    EXPECT_EQ(list.IndexOf(c), 2);
    m_canvas.Select(nullptr);
    for (const int id : {kSpriteCopy, kSpriteDelete, kSpriteForward, kSpriteToAll}) {
        EXPECT_FALSE(m_canvas.IsCommandEnabled(id));
    }
    EXPECT_TRUE(m_canvas.IsCommandEnabled(kSpritePaste));
}

TEST_F(SpriteEditingTest, ApplyToAllMovesOneSpriteOrAllIntoTheAlbum) {
    CDVDImageProps* a = addClip({0, 100, 50, 50});
    CDVDImageProps* b = addClip({100, 100, 50, 50});
    CDVDImageProps* c = addClip({200, 100, 50, 50});
    m_canvas.Select(b);
    m_canvas.Command(kSpriteToAll);
    EXPECT_EQ(m_albumChanged, 1);
    EXPECT_EQ(m_node->changed, 1);
    EXPECT_TRUE(b->GetAlbumFlag());
    EXPECT_EQ(m_album.GetSprites().GetSize(), 1);
    m_canvas.Command(kSpriteToAll);
    EXPECT_EQ(m_album.GetSprites().GetSize(), 1) << "it is there already";
    m_canvas.Select(nullptr);
    m_canvas.Command(kSpriteToAll);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
    EXPECT_EQ(m_album.GetSprites().IndexOf(b), 0);
    EXPECT_EQ(m_album.GetSprites().IndexOf(a), 1);
    EXPECT_EQ(m_album.GetSprites().IndexOf(c), 2);
}

TEST_F(SpriteEditingTest, ASpriteIsNeverInBothLists) {
    CDVDImageProps* clip = addClip({0, 100, 50, 50});
    clip->SetAlbumFlag(true);  // as a project file may say
    m_canvas.Select(clip);
    m_canvas.Command(kSpriteToAll);
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
    clip->SetAlbumFlag(false);  // as applying the album to a photo does
    m_canvas.Command(kSpriteToAll);
    EXPECT_EQ(m_album.GetSprites().GetSize(), 1);
}

TEST_F(SpriteEditingTest, TheMenuOpensOnWhatTheMouseIsOver) {
    addClip({100, 100, 100, 50});
    QContextMenuEvent event(QContextMenuEvent::Mouse, {150, 120}, m_canvas.mapToGlobal(QPoint()));
    QApplication::sendEvent(&m_canvas, &event);
    EXPECT_NE(m_canvas.GetSelected(), nullptr);
    auto* menu = m_canvas.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QList<int> ids;
    for (QAction* action : menu->actions()) {
        if (!action->isSeparator()) {
            ids.append(action->property(kCommandIdProperty).toInt());
            if (ids.back() == kSpriteDelete) {
                action->trigger();
            }
        }
    }
    EXPECT_EQ(ids, (QList<int>{32837, 32838, 32839, 32840, 32841, 32842, 32843, 33927}));
    EXPECT_TRUE(m_record->GetSprites().IsEmpty());
    menu->close();
}

TEST_F(SpriteEditingTest, SpritesThatTheHostTakesAwayAreForgotten) {
    CDVDImageProps* clip = addAlbumClip({100, 100, 100, 50});
    press({150, 120});
    ASSERT_EQ(m_canvas.GetSelected(), clip);
    m_album.ClearSprites(true);
    move({200, 200});
    release({200, 200});
    key(Qt::Key_Left);
    key(Qt::Key_Delete);
    m_canvas.Command(kSpriteToFront);
    EXPECT_EQ(m_canvas.GetSelected(), nullptr);
    shown();
}

TEST_F(SpriteEditingTest, WithoutAPhotoEveryActionIsHarmless) {
    m_session.setPhoto(nullptr, nullptr);
    drag({100, 100}, {200, 200});
    doubleClick({100, 100});
    key(Qt::Key_Delete);
    key(Qt::Key_Escape);
    key(Qt::Key_V, Qt::ControlModifier);
    m_canvas.AddText();
    m_canvas.InsertMacro(0);
    m_canvas.SetCropMode(1);
    m_canvas.ShowFilterMarker(true);
    m_canvas.Command(kSpriteToAll);
    m_canvas.Redraw();
    EXPECT_FALSE(m_canvas.AddClip(m_folder.filePath(QStringLiteral("photo.png"))));
    EXPECT_FALSE(m_canvas.IsEditorOpen());
    EXPECT_EQ(shownAt({300, 200}), QColor(Qt::black));
}

}  // namespace
}  // namespace vellora
