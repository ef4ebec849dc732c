#pragma once

#include <QString>
#include <cstddef>
#include <map>
#include <vector>

#include <pugixml.hpp>

#include <vellora/base/Types.h>

namespace vellora {

/// What reading an attribute can tell.
inline constexpr int kXmlFound = 0;
inline constexpr int kXmlNoNode = 1;
inline constexpr int kXmlNoAttribute = -1;

/// One element of an opened document: a cursor, cheap to copy, valid while its `CXMLParse` lives.
/// Each step costs no more than the children it passes, so a reader that walks down with it stays
/// linear in the document. Texts come without the characters that XML cannot hold.
class XmlNode {
public:
    XmlNode() = default;
    explicit XmlNode(pugi::xml_node node) : m_node(node) {}

    explicit operator bool() const { return static_cast<bool>(m_node); }

    /// @name Attribute readers
    /// They return `kXmlFound`, `kXmlNoNode` or `kXmlNoAttribute`. The text form empties `out`
    /// first, the others write it only when there is a number; numbers beyond 32 bits stop at the
    /// nearest limit.
    /// @{
    int GetAttribute(const char* name, QString& out) const;
    int GetIntAttribute(const char* name, std::int32_t& out) const;
    int GetHexAttribute(const char* name, std::uint32_t& out) const;
    /// Reads "0xrrggbb".
    int GetColorAttribute(const char* name, COLORREF& out) const;
    /// @}

    /// Whether the attribute has this text, without regard to the case of Latin letters.
    [[nodiscard]] bool AttributeIs(const char* name, const char* text) const;

    /// The attribute's UTF-8 text as it stands in the document, empty when there is none; valid
    /// while the document is.
    [[nodiscard]] const char* RawAttribute(const char* name) const;

    /// The attribute's text, empty when there is none.
    [[nodiscard]] QString Attribute(const char* name) const;

    /// The number in the attribute "id", or -1 when that is not a plain decimal number, written
    /// without sign or leading zeros.
    [[nodiscard]] std::int32_t Id() const;

    [[nodiscard]] QString Name() const;
    /// The first child element, whatever its name.
    [[nodiscard]] XmlNode FirstElement() const;
    /// The next element under the same parent, whatever its name.
    [[nodiscard]] XmlNode NextElement() const;

    /// The first child element of that name.
    [[nodiscard]] XmlNode Child(const char* name) const;

    /// The next element of that name under the same parent.
    [[nodiscard]] XmlNode NextSibling(const char* name) const;

    /// All text below the element, in document order.
    [[nodiscard]] QString Text() const;

    /// The text before the first child element.
    [[nodiscard]] QString LeadingText() const;

    /// Where the element stands in the document as it was parsed, in bytes of UTF-8; -1 when that
    /// is not known.
    [[nodiscard]] std::ptrdiff_t Offset() const { return m_node.offset_debug(); }

private:
    friend class CXMLParse;

    [[nodiscard]] pugi::xml_attribute attribute(const char* name) const;
    [[nodiscard]] int resultOf(const pugi::xml_attribute& attribute) const;

    pugi::xml_node m_node;
    mutable pugi::xml_attribute m_hint;  // behind the one found last, where the next one may be
};

/// An element with the number of its "id" attribute.
struct XmlNumberedNode {
    std::int32_t id;
    XmlNode node;
};

/// From `nodes`, in document order: those whose `Id` is from 0 to `count` - 1, the first of each
/// id, by rising id. The work does not depend on `count`.
std::vector<XmlNumberedNode> numberedNodes(const std::vector<XmlNode>& nodes, std::int32_t count);

/// The same over the child elements of all `parents` that carry the name.
std::vector<XmlNumberedNode> numberedChildren(const std::vector<XmlNode>& parents, const char* name,
                                              std::int32_t count);

/// The nodes by their "id" as above, all of each id in document order.
std::map<std::int32_t, std::vector<XmlNode>> groupedById(const std::vector<XmlNode>& nodes,
                                                         std::int32_t count);

}  // namespace vellora
