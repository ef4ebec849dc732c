#pragma once

/// @file
/// The photo list as a host walks it.

#include <vellora/base/Export.h>

namespace vellora {

struct _HNODE;
struct _HNODE_DATA;
class NodeList;
struct NodeListEntry;

/// Names one element of the photo list: its data record and its handle alike. Valid until the
/// element is removed; null stands for no element.
using POSITION = NodeListEntry*;

/// A view of the photo list in slideshow order. Its elements are the data records.
///
/// The view belongs to its `CImageObj` and always shows the present list. Take the next position
/// before removing the element at hand.
class VELLORA_EXPORT CPtrList {
public:
    [[nodiscard]] int GetCount() const;
    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] POSITION GetHeadPosition() const;
    [[nodiscard]] POSITION GetTailPosition() const;
    /// The element at a position, which then moves on: to null behind the last element.
    _HNODE_DATA* GetNext(POSITION& position) const;
    [[nodiscard]] _HNODE_DATA* GetAt(POSITION position) const;
    /// The position of the index-th element, or null.
    [[nodiscard]] POSITION FindIndex(int index) const;

private:
    friend class NodeList;
    explicit CPtrList(const NodeList& list) : m_list(list) {}

    const NodeList& m_list;
};

}  // namespace vellora
