#include <memory>
#include <vector>

#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageSprite.h>

#include "host/Guard.h"
#include "host/LanguageFile.h"
#include "host/NodeList.h"
#include "project/ProjectReader.h"
#include "project/ProjectWriter.h"

namespace vellora {
namespace {

void bind(CDVDImage& image, _PHOTO_LIST_NODE* photo, CDVDAlbumImage* album) {
    image.BindNode(photo, album);
    if (photo != nullptr) {
        image.SetBackgroundColor(photo->background);
    }
}

/// A new node, bound and with one reference.
_HNODE* makeNode(_PHOTO_LIST_NODE* photo, CDVDAlbumImage* album) {
    auto image = std::make_unique<CDVDImage>();
    bind(*image, photo, album);
    auto data = std::make_unique<_HNODE_DATA>(_HNODE_DATA{photo, image.get()});
    auto* handle = new _HNODE{data.get(), 1};
    image.release();
    data.release();
    return handle;
}

void deleteData(_HNODE_DATA* data) {
    delete data->image;
    delete data;
}

/// The edit records in slideshow order, nodes without one left out.
std::vector<CDVDImage*> editRecords(const NodeList& nodes) {
    std::vector<CDVDImage*> records;
    records.reserve(static_cast<std::size_t>(nodes.GetCount()));
    for (POSITION position = nodes.GetHead(); position != nullptr; position = position->next) {
        if (position->data->image != nullptr) {
            records.push_back(position->data->image);
        }
    }
    return records;
}

bool isUsable(const _HNODE* node) {
    return node != nullptr && node->data != nullptr;
}

}  // namespace

CImageObj::CImageObj()
    : m_nodes(std::make_unique<NodeList>()), m_album(std::make_unique<CDVDAlbumImage>()) {}

CImageObj::~CImageObj() = default;

STATUS CImageObj::AddPhotoListNode(_PHOTO_LIST_NODE* photo, _HNODE** out) {
    return InsertPhotListNode(nullptr, photo, 0, nullptr, out);
}

STATUS CImageObj::InsertPhotListNode(POSITION pos, _PHOTO_LIST_NODE* photo, int before,
                                     POSITION* outPos, _HNODE** out) {
    return guarded([&] {
        if (out == nullptr) {
            return E_FAIL;
        }
        const std::unique_ptr<_HNODE, void (*)(_HNODE*)> node(makeNode(photo, m_album.get()),
                                                              ReleaseNode);
        const POSITION inserted = m_nodes->Insert(pos, node.get(), before != 0);
        if (outPos != nullptr) {
            *outPos = inserted;
        }
        *out = DupHandle(node.get());
        return S_OK;
    });
}

STATUS CImageObj::AddNode(_HNODE* node) {
    return guarded([&] {
        if (!isUsable(node)) {
            return E_FAIL;
        }
        m_nodes->Append(node);
        if (node->data->image != nullptr) {
            bind(*node->data->image, node->data->photo, m_album.get());
        }
        return S_OK;
    });
}

STATUS CImageObj::InsertNode(POSITION pos, _HNODE* node, int before, POSITION* outPos) {
    return guarded([&] {
        if (!isUsable(node)) {
            return E_FAIL;
        }
        const POSITION inserted = m_nodes->Insert(pos, node, before != 0);
        if (outPos != nullptr) {
            *outPos = inserted;
        }
        return S_OK;
    });
}

STATUS CImageObj::GetPositionByIndex(int index, POSITION* out) {
    if (out != nullptr) {
        *out = m_nodes->FindIndex(index);
    }
    return S_OK;
}

STATUS CImageObj::GetNodeData(int index, _HNODE** out) {
    const POSITION position = m_nodes->FindIndex(index);
    if (position == nullptr || out == nullptr) {
        return E_FAIL;
    }
    *out = reinterpret_cast<_HNODE*>(position->data);
    return S_OK;
}

STATUS CImageObj::RemoveAt(int index) {
    const POSITION position = m_nodes->FindIndex(index);
    if (position == nullptr) {
        return E_FAIL;
    }
    m_nodes->Remove(position);
    return S_OK;
}

STATUS CImageObj::RemoveTail() {
    return RemoveZelphPhotoNodeByIndex(m_nodes->GetCount() - 1);
}

STATUS CImageObj::RemoveZelphPhotoNodeByIndex(int index) {
    return guarded([&] {
        const POSITION position = m_nodes->FindIndex(index);
        if (position == nullptr) {
            return E_FAIL;
        }
        _HNODE_DATA* data = position->data;
        m_nodes->Remove(position);
        deleteData(data);
        return S_OK;
    });
}

STATUS CImageObj::RemoveAllNodes() {
    m_nodes->RemoveAll();
    return S_OK;
}

void CImageObj::SetChangedToAllNode() {
    for (POSITION position = m_nodes->GetHead(); position != nullptr; position = position->next) {
        if (position->data->photo != nullptr) {
            position->data->photo->changed = 1;
        }
    }
}

CPtrList* CImageObj::GetProjectPtrList() {
    return m_nodes->View();
}

QStringList& CImageObj::GetTransitionNameArray() {
    static QStringList names;
    return names;
}

STATUS CImageObj::IsAlbumEmpty(int& empty) {
    empty = m_album->GetSprites().IsEmpty() ? 1 : 0;
    return S_OK;
}

STATUS CImageObj::RemoveAllAlbumSprites() {
    m_album->ClearSprites(true);
    return S_OK;
}

STATUS CImageObj::ApplyAlbumToNode(_HNODE* node) {
    return guarded([&] {
        if (!isUsable(node) || node->data->image == nullptr) {
            return S_OK;
        }
        const CDVDImageSpriteArray& sprites = m_album->GetSprites();
        for (int index = 0; index < sprites.GetSize(); ++index) {
            CDVDImageSprite* sprite = sprites.GetAt(index);
            sprite->SetAlbumFlag(false);
            node->data->image->AddSprite(sprite, true);
        }
        return S_OK;
    });
}

STATUS CImageObj::SaveToXMLFile(const QString& path) {
    return guarded(
        [&] { return saveProject(path, *m_album, editRecords(*m_nodes)) ? S_OK : E_FAIL; });
}

STATUS CImageObj::LoadFromXMLFile(const QString& path) {
    QString reason;
    const STATUS status = LoadFromXMLFile(path, &reason);
    return reason.isEmpty() ? status : S_OK;
}

STATUS CImageObj::LoadFromXMLFile(const QString& path, QString* reason) {
    return guarded([&] {
        *reason = loadProject(path, m_baseFolder, *m_album, editRecords(*m_nodes));
        return reason->isEmpty() ? S_OK : E_FAIL;
    });
}

STATUS CImageObj::SetImageFilePath(const QString& path) {
    m_imageFilePath = path;
    return S_OK;
}

STATUS CImageObj::SetTextEffectBaseFolder(const QString& folder) {
    m_baseFolder = folder;
    m_album->SetTextEffectBaseFolder(folder);
    return S_OK;
}

void CImageObj::SetLanguageString(const QString& path) {
    setLanguageFilePath(path);
}

}  // namespace vellora
