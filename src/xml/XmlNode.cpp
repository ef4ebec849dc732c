#include "xml/XmlNode.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

#include "base/XmlText.h"

namespace vellora {
namespace {

QString textFrom(const char* utf8) {
    return xmlText(QString::fromUtf8(utf8));
}

struct ScannedNumber {
    bool negative;
    std::uint64_t magnitude;  // stops far beyond 32 bits
};

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The value of a digit, or -1 for another character or a digit that the base does not have.
int digitOf(char c, int base) {
    int digit = -1;
    if (c >= '0' && c <= '9') {
        digit = c - '0';
    } else if (const int letter = c | 0x20; letter >= 'a' && letter <= 'f') {
        digit = letter - 'a' + 10;
    }
    return digit < base ? digit : -1;
}

/// Scans as "%d" and "%x" do: blanks, a sign, "0x" for base 16, digits; the rest is ignored.
std::optional<ScannedNumber> scanNumber(const char* text, int base) {
    constexpr std::uint64_t kEnough = std::uint64_t{1} << 40U;
    while (isBlank(*text)) {
        ++text;
    }
    ScannedNumber number{*text == '-', 0};
    if (*text == '-' || *text == '+') {
        ++text;
    }
    if (base == 16 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        text += 2;
    }
    if (digitOf(*text, base) < 0) {
        return std::nullopt;
    }
    for (int digit = digitOf(*text, base); digit >= 0; digit = digitOf(*++text, base)) {
        number.magnitude = std::min(
            kEnough, number.magnitude * static_cast<unsigned>(base) + static_cast<unsigned>(digit));
    }
    return number;
}

std::int32_t toInt32(const ScannedNumber& number) {
    constexpr std::uint64_t kMax = std::numeric_limits<std::int32_t>::max();
    const auto bounded =
        static_cast<std::int64_t>(std::min(number.magnitude, kMax + (number.negative ? 1 : 0)));
    return static_cast<std::int32_t>(number.negative ? -bounded : bounded);
}

std::uint32_t toUint32(const ScannedNumber& number) {
    constexpr std::uint64_t kMax = std::numeric_limits<std::uint32_t>::max();
    const auto bounded = static_cast<std::uint32_t>(std::min(number.magnitude, kMax));
    return number.negative ? 0U - bounded : bounded;
}

bool isText(const pugi::xml_node& node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

pugi::xml_node firstElementFrom(pugi::xml_node node) {
    while (node && node.type() != pugi::node_element) {
        node = node.next_sibling();
    }
    return node;
}

/// The blanks in front of the first child of an element. The parser makes no node of blanks alone
/// between tags, but they still stand in the text it parsed, in front of the child's "<".
QString blanksBefore(const pugi::xml_node& child) {
    const char* end = child.name() - 1;
    const char* begin = end;
    while (isBlank(begin[-1])) {
        --begin;
    }
    return QString::fromUtf8(begin, end - begin);
}

/// The number in a text of nothing but a number without sign or leading zeros, else -1.
std::int32_t plainNumber(std::string_view text) {
    std::int32_t number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isPlain = error == std::errc() && end == text.data() + text.size() &&
                         text[0] != '-' && (text.size() == 1 || text[0] != '0');
    return isPlain ? number : -1;
}

}  // namespace

pugi::xml_attribute XmlNode::attribute(const char* name) const {
    return m_node.attribute(name, m_hint);
}

const char* XmlNode::RawAttribute(const char* name) const {
    return attribute(name).value();
}

bool XmlNode::AttributeIs(const char* name, const char* text) const {
    return qstricmp(attribute(name).value(), text) == 0;
}

int XmlNode::resultOf(const pugi::xml_attribute& attribute) const {
    if (!m_node) {
        return kXmlNoNode;
    }
    return attribute ? kXmlFound : kXmlNoAttribute;
}

int XmlNode::GetAttribute(const char* name, QString& out) const {
    const pugi::xml_attribute found = attribute(name);
    out = textFrom(found.value());
    return resultOf(found);
}

int XmlNode::GetIntAttribute(const char* name, std::int32_t& out) const {
    const pugi::xml_attribute found = attribute(name);
    if (const auto number = scanNumber(found.value(), 10)) {
        out = toInt32(*number);
    }
    return resultOf(found);
}

int XmlNode::GetHexAttribute(const char* name, std::uint32_t& out) const {
    const pugi::xml_attribute found = attribute(name);
    if (const auto number = scanNumber(found.value(), 16)) {
        out = toUint32(*number);
    }
    return resultOf(found);
}

int XmlNode::GetColorAttribute(const char* name, COLORREF& out) const {
    const pugi::xml_attribute found = attribute(name);
    if (const auto number = scanNumber(found.value(), 16)) {
        const std::uint32_t rgb = toUint32(*number);
        out = makeColorRef(rgb >> 16U, rgb >> 8U, rgb);
    }
    return resultOf(found);
}

QString XmlNode::Attribute(const char* name) const {
    return textFrom(attribute(name).value());
}

std::int32_t XmlNode::Id() const {
    return plainNumber(attribute("id").value());
}

QString XmlNode::Name() const {
    return textFrom(m_node.name());
}

XmlNode XmlNode::FirstElement() const {
    return XmlNode(firstElementFrom(m_node.first_child()));
}

XmlNode XmlNode::NextElement() const {
    return XmlNode(firstElementFrom(m_node.next_sibling()));
}

XmlNode XmlNode::Child(const char* name) const {
    return XmlNode(m_node.child(name));
}

XmlNode XmlNode::NextSibling(const char* name) const {
    return XmlNode(m_node.next_sibling(name));
}

QString XmlNode::Text() const {
    QString text;
    pugi::xml_node at = m_node;
    while (at) {
        if (isText(at)) {
            text += QString::fromUtf8(at.value());
        }
        if (at.first_child()) {
            at = at.first_child();
            continue;
        }
        while (at != m_node && !at.next_sibling()) {
            at = at.parent();
        }
        at = at == m_node ? pugi::xml_node() : at.next_sibling();
    }
    return xmlText(text);
}

QString XmlNode::LeadingText() const {
    const pugi::xml_node first = m_node.first_child();
    if (first.type() == pugi::node_element) {
        return blanksBefore(first);
    }
    QString text;
    for (const pugi::xml_node& child : m_node.children()) {
        if (child.type() == pugi::node_element) {
            break;
        }
        if (isText(child)) {
            text += QString::fromUtf8(child.value());
        }
    }
    return xmlText(text);
}

std::vector<XmlNumberedNode> numberedNodes(const std::vector<XmlNode>& nodes, std::int32_t count) {
    std::vector<XmlNumberedNode> numbered;
    for (const XmlNode& node : nodes) {
        const std::int32_t id = node.Id();
        if (id >= 0 && id < count) {
            numbered.push_back({id, node});
        }
    }
    std::ranges::stable_sort(numbered, {}, &XmlNumberedNode::id);
    const auto repeated = std::ranges::unique(numbered, {}, &XmlNumberedNode::id);
    numbered.erase(repeated.begin(), repeated.end());
    return numbered;
}

std::vector<XmlNumberedNode> numberedChildren(const std::vector<XmlNode>& parents, const char* name,
                                              std::int32_t count) {
    if (count <= 0) {
        return {};
    }
    std::vector<XmlNode> nodes;
    for (const XmlNode& parent : parents) {
        for (XmlNode child = parent.Child(name); child; child = child.NextSibling(name)) {
            nodes.push_back(child);
        }
    }
    return numberedNodes(nodes, count);
}

std::map<std::int32_t, std::vector<XmlNode>> groupedById(const std::vector<XmlNode>& nodes,
                                                         std::int32_t count) {
    std::map<std::int32_t, std::vector<XmlNode>> groups;
    for (const XmlNode& node : nodes) {
        const std::int32_t id = node.Id();
        if (id >= 0 && id < count) {
            groups[id].push_back(node);
        }
    }
    return groups;
}

}  // namespace vellora
