#include "common/Document.h"

#include <new>

namespace vellora::hostkit {

Document::~Document() {
    for (_HNODE* handle : m_handles) {
        ReleaseNode(handle);
    }
}

CDVDImage& Document::addPhoto(const _PHOTO_LIST_NODE& record) {
    m_handles.reserve(m_handles.size() + 1);
    m_records.push_back(std::make_unique<_PHOTO_LIST_NODE>(record));
    _HNODE* handle = nullptr;
    if (m_show.AddPhotoListNode(m_records.back().get(), &handle) != S_OK) {
        throw std::bad_alloc();
    }
    m_handles.push_back(handle);
    return *handle->data->image;
}

}  // namespace vellora::hostkit
