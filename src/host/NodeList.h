#pragma once

#include <vellora/host/NodeHandle.h>
#include <vellora/host/PtrList.h>

namespace vellora {

/// One element: a node's data record and its handle, side by side. An element removed from the
/// list by its data record takes its handle with it, so that both can never get out of step.
struct NodeListEntry {
    _HNODE_DATA* data = nullptr;
    _HNODE* handle = nullptr;
    NodeListEntry* previous = nullptr;
    NodeListEntry* next = nullptr;
};

/// The nodes of a slideshow in order: a doubly linked list of entries whose addresses are the
/// positions that hosts hold. Owns the entries, not what they name.
class NodeList {
public:
    NodeList();
    ~NodeList();
    NodeList(const NodeList&) = delete;
    NodeList& operator=(const NodeList&) = delete;

    POSITION Append(_HNODE* handle);
    POSITION Insert(POSITION position, _HNODE* handle, bool before);
    void Remove(POSITION position);
    void RemoveAll();

    [[nodiscard]] int GetCount() const { return m_count; }
    [[nodiscard]] POSITION GetHead() const { return m_head; }
    [[nodiscard]] POSITION GetTail() const { return m_tail; }
    [[nodiscard]] POSITION FindIndex(int index) const;
    [[nodiscard]] CPtrList* View() { return &m_view; }

private:
    POSITION Link(_HNODE* handle, NodeListEntry* previous, NodeListEntry* next);

    NodeListEntry* m_head = nullptr;
    NodeListEntry* m_tail = nullptr;
    int m_count = 0;
    CPtrList m_view;
};

}  // namespace vellora
