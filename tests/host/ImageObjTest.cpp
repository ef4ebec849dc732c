#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "base/ModuleState.h"

namespace vellora {
namespace {

/// A document of `kCount` photos whose handles are kept.
struct ImageObjTest : testing::Test {
    static constexpr int kCount = 4;

    _PHOTO_LIST_NODE photos[kCount] = {};
    _HNODE* handles[kCount] = {};
    CImageObj document;

    ImageObjTest() {
        for (int k = 0; k < kCount; ++k) {
            photos[k].background = 0x00112200U + static_cast<COLORREF>(k);
            EXPECT_EQ(document.AddPhotoListNode(&photos[k], &handles[k]), S_OK);
        }
    }

    ~ImageObjTest() override {
        for (_HNODE* handle : handles) {
            ReleaseNode(handle);
        }
    }

    /// The photos in list order, as indices of `photos`; walked as a host does.
    std::vector<int> order() {
        std::vector<int> result;
        CPtrList* list = document.GetProjectPtrList();
        for (POSITION position = list->GetHeadPosition(); position != nullptr;) {
            result.push_back(static_cast<int>(list->GetNext(position)->photo - photos));
        }
        EXPECT_EQ(list->GetCount(), static_cast<int>(result.size()));
        return result;
    }

    POSITION positionOf(int index) {
        POSITION position = nullptr;
        EXPECT_EQ(document.GetPositionByIndex(index, &position), S_OK);
        return position;
    }
};

using Order = std::vector<int>;

TEST_F(ImageObjTest, BindsEachPhotoToItsRecordAndTheAlbum) {
    for (int k = 0; k < kCount; ++k) {
        const CDVDImage& image = *handles[k]->data->image;
        EXPECT_EQ(handles[k]->refs, 1);
        EXPECT_EQ(image.GetNode(), &photos[k]);
        EXPECT_EQ(image.GetAlbum(), document.GetAlbum());
        EXPECT_EQ(image.GetBackgroundColor(), photos[k].background);
        EXPECT_EQ(photos[k].changed, 0);
    }
    EXPECT_EQ(currentBackground(), photos[kCount - 1].background);
}

TEST_F(ImageObjTest, HandsOutDataRecordsByIndex) {
    _HNODE* element = nullptr;
    ASSERT_EQ(document.GetNodeData(2, &element), S_OK);
    EXPECT_EQ(reinterpret_cast<_HNODE_DATA*>(element), handles[2]->data);
    EXPECT_EQ(reinterpret_cast<_HNODE_DATA*>(element)->photo, &photos[2]);

    for (const int bad : {-1, kCount}) {
        element = nullptr;
        EXPECT_EQ(document.GetNodeData(bad, &element), E_FAIL);
        EXPECT_EQ(element, nullptr);
        EXPECT_EQ(positionOf(bad), nullptr);
        EXPECT_EQ(document.RemoveAt(bad), E_FAIL);
        EXPECT_EQ(document.RemoveZelphPhotoNodeByIndex(bad), E_FAIL);
    }
    EXPECT_EQ(order(), (Order{0, 1, 2, 3}));
}

TEST_F(ImageObjTest, RefusesANullResult) {
    _PHOTO_LIST_NODE photo = {};
    EXPECT_EQ(document.AddPhotoListNode(&photo, nullptr), E_FAIL);
    EXPECT_EQ(document.InsertPhotListNode(positionOf(0), &photo, 1, nullptr, nullptr), E_FAIL);
    EXPECT_EQ(document.AddNode(nullptr), E_FAIL);
    EXPECT_EQ(order(), (Order{0, 1, 2, 3}));
}

TEST_F(ImageObjTest, PositionsOfEveryOriginWorkInEveryOperation) {
    ASSERT_EQ(document.RemoveAllNodes(), S_OK);
    ASSERT_EQ(document.AddNode(handles[0]), S_OK);

    POSITION third = nullptr;
    ASSERT_EQ(document.InsertNode(positionOf(0), handles[3], 0, &third), S_OK);
    POSITION second = nullptr;
    ASSERT_EQ(document.InsertNode(third, handles[2], 1, &second), S_OK);
    EXPECT_EQ(order(), (Order{0, 2, 3}));
    EXPECT_EQ(second, positionOf(1));
    EXPECT_EQ(document.GetProjectPtrList()->GetAt(second), handles[2]->data);

    _PHOTO_LIST_NODE extra = {};
    _HNODE* handle = nullptr;
    POSITION inserted = nullptr;
    ASSERT_EQ(document.InsertPhotListNode(second, &extra, 1, &inserted, &handle), S_OK);
    EXPECT_EQ(document.GetProjectPtrList()->GetAt(inserted), handle->data);
    EXPECT_EQ(document.GetProjectPtrList()->FindIndex(1), inserted);
    EXPECT_EQ(handle->refs, 1);
    ASSERT_EQ(document.RemoveAt(1), S_OK);
    ReleaseNode(handle);

    ASSERT_EQ(document.InsertNode(nullptr, handles[1], 0, nullptr), S_OK);
    EXPECT_EQ(order(), (Order{0, 2, 3, 1}));
}

TEST_F(ImageObjTest, AddingBindsAgainButInsertingDoesNot) {
    CImageObj other;
    ASSERT_EQ(other.AddNode(handles[0]), S_OK);
    EXPECT_EQ(handles[0]->data->image->GetAlbum(), other.GetAlbum());
    EXPECT_EQ(handles[0]->refs, 1);
    ASSERT_EQ(other.InsertNode(nullptr, handles[1], 0, nullptr), S_OK);
    EXPECT_EQ(handles[1]->data->image->GetAlbum(), document.GetAlbum());
}

TEST_F(ImageObjTest, TakingElementsOutFreesOnlyWhatTheOperationSays) {
    ASSERT_EQ(document.RemoveAt(1), S_OK);
    EXPECT_EQ(order(), (Order{0, 2, 3}));
    EXPECT_EQ(handles[1]->data->photo, &photos[1]);

    ASSERT_EQ(document.RemoveTail(), S_OK);
    ASSERT_EQ(document.RemoveZelphPhotoNodeByIndex(0), S_OK);
    EXPECT_EQ(order(), (Order{2}));
    // Their data records are gone; only the handles themselves are left to free.
    for (const int removed : {0, 3}) {
        EXPECT_EQ(handles[removed]->refs, 1);
        EXPECT_EQ(photos[removed].changed, 1);
        delete handles[removed];
        handles[removed] = nullptr;
    }

    ASSERT_EQ(document.RemoveAllNodes(), S_OK);
    EXPECT_TRUE(document.GetProjectPtrList()->IsEmpty());
    EXPECT_EQ(document.RemoveTail(), E_FAIL);
}

TEST_F(ImageObjTest, TheLastReferenceFreesTheNode) {
    _PHOTO_LIST_NODE photo = {};
    _HNODE* handle = nullptr;
    CImageObj other;
    ASSERT_EQ(other.AddPhotoListNode(&photo, &handle), S_OK);
    EXPECT_EQ(DupHandle(handle), handle);
    DupHandle(handle);
    other.RemoveAllNodes();
    ReleaseNode(handle);
    ReleaseNode(handle);
    EXPECT_EQ(handle->refs, 1);
    EXPECT_EQ(photo.changed, 0);
    ReleaseNode(handle);
    EXPECT_EQ(photo.changed, 1) << "the edit record's destruction marks its photo";

    EXPECT_EQ(DupHandle(nullptr), nullptr);
    ReleaseNode(nullptr);
    ReleaseImgBuf(nullptr);
}

TEST_F(ImageObjTest, MarksAllPhotosChanged) {
    CImageObj().SetChangedToAllNode();
    document.SetChangedToAllNode();
    for (const _PHOTO_LIST_NODE& photo : photos) {
        EXPECT_EQ(photo.changed, 1);
    }
}

TEST_F(ImageObjTest, AppliesAlbumSpritesAsCopies) {
    int empty = 0;
    ASSERT_EQ(document.IsAlbumEmpty(empty), S_OK);
    EXPECT_EQ(empty, 1);
    EXPECT_EQ(document.ApplyAlbumToNode(handles[0]), S_OK);
    EXPECT_EQ(photos[0].changed, 0);

    CDVDAlbumImage& album = *document.GetAlbum();
    for (const int x : {10, 20}) {
        auto* clip = new CDVDImageProps(&album, QStringLiteral("clip%1.png").arg(x));
        clip->SetPosition(x, 5);
        clip->SetAlbumFlag(true);
        album.AddSprite(clip, false);
    }
    ASSERT_EQ(document.IsAlbumEmpty(empty), S_OK);
    EXPECT_EQ(empty, 0);

    EXPECT_EQ(document.ApplyAlbumToNode(handles[0]), S_OK);
    EXPECT_EQ(photos[0].changed, 1);
    EXPECT_EQ(photos[1].changed, 0);
    const CDVDImageSpriteArray& own = handles[0]->data->image->GetSprites();
    ASSERT_EQ(own.GetSize(), 2);
    for (int k = 0; k < 2; ++k) {
        EXPECT_NE(own.GetAt(k), album.GetSprites().GetAt(k));
        EXPECT_EQ(own.GetAt(k)->GetPosition(), QPoint(10 + 10 * k, 5));
        EXPECT_EQ(own.GetAt(k)->GetOwner(), handles[0]->data->image);
        EXPECT_FALSE(own.GetAt(k)->GetAlbumFlag());
        EXPECT_FALSE(album.GetSprites().GetAt(k)->GetAlbumFlag());
    }

    ASSERT_EQ(document.RemoveAllAlbumSprites(), S_OK);
    ASSERT_EQ(document.IsAlbumEmpty(empty), S_OK);
    EXPECT_EQ(empty, 1);
}

TEST_F(ImageObjTest, HoldsTheHostsSettings) {
    EXPECT_EQ(document.GetTextEffectBaseFolder(), QStringLiteral("."));
    document.SetTextEffectBaseFolder(QStringLiteral("/srv/assets"));
    EXPECT_EQ(document.GetAlbum()->GetTextEffectBaseFolder(), QStringLiteral("/srv/assets"));
    document.SetImageFilePath(QStringLiteral("a.jpg"));
    EXPECT_EQ(document.GetImageFilePath(), QStringLiteral("a.jpg"));
    CImageObj::GetTransitionNameArray() = QStringList{QStringLiteral("Fade")};
    EXPECT_EQ(CImageObj::GetTransitionNameArray().size(), 1);
}

}  // namespace
}  // namespace vellora
