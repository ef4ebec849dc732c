#pragma once

#include <memory>
#include <vector>

#include <vellora/base/PhotoListNode.h>
#include <vellora/host/ImageObj.h>

namespace vellora::hostkit {

/// A slideshow in memory that owns the host records of its photos and their handles.
class Document {
public:
    Document() = default;
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Appends a photo with a copy of its record.
    /// @return Its edit record.
    CDVDImage& addPhoto(const _PHOTO_LIST_NODE& record);

    [[nodiscard]] CImageObj& show() { return m_show; }

private:
    std::vector<std::unique_ptr<_PHOTO_LIST_NODE>> m_records;
    std::vector<_HNODE*> m_handles;
    CImageObj m_show;
};

}  // namespace vellora::hostkit
