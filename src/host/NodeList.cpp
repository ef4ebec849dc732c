#include "host/NodeList.h"

namespace vellora {

NodeList::NodeList() : m_view(*this) {}

NodeList::~NodeList() {
    RemoveAll();
}

POSITION NodeList::Link(_HNODE* handle, NodeListEntry* previous, NodeListEntry* next) {
    auto* entry = new NodeListEntry{handle->data, handle, previous, next};
    (previous != nullptr ? previous->next : m_head) = entry;
    (next != nullptr ? next->previous : m_tail) = entry;
    ++m_count;
    return entry;
}

POSITION NodeList::Append(_HNODE* handle) {
    return Link(handle, m_tail, nullptr);
}

POSITION NodeList::Insert(POSITION position, _HNODE* handle, bool before) {
    if (before) {
        return position != nullptr ? Link(handle, position->previous, position)
                                   : Link(handle, nullptr, m_head);
    }
    return position != nullptr ? Link(handle, position, position->next) : Append(handle);
}

void NodeList::Remove(POSITION position) {
    (position->previous != nullptr ? position->previous->next : m_head) = position->next;
    (position->next != nullptr ? position->next->previous : m_tail) = position->previous;
    --m_count;
    delete position;
}

void NodeList::RemoveAll() {
    while (m_head != nullptr) {
        Remove(m_head);
    }
}

POSITION NodeList::FindIndex(int index) const {
    if (index < 0 || index >= m_count) {
        return nullptr;
    }
    POSITION position = m_head;
    while (index-- > 0) {
        position = position->next;
    }
    return position;
}

int CPtrList::GetCount() const {
    return m_list.GetCount();
}

bool CPtrList::IsEmpty() const {
    return m_list.GetCount() == 0;
}

POSITION CPtrList::GetHeadPosition() const {
    return m_list.GetHead();
}

POSITION CPtrList::GetTailPosition() const {
    return m_list.GetTail();
}

_HNODE_DATA* CPtrList::GetNext(POSITION& position) const {
    _HNODE_DATA* data = position->data;
    position = position->next;
    return data;
}

_HNODE_DATA* CPtrList::GetAt(POSITION position) const {
    return position->data;
}

POSITION CPtrList::FindIndex(int index) const {
    return m_list.FindIndex(index);
}

}  // namespace vellora
