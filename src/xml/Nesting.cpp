#include "xml/Nesting.h"

#include <pugixml.hpp>

namespace vellora {
namespace {

/// The way of one tag: into an element, out of one, neither, or not known.
enum class Way { In, Out, None, Unknown };

/// @param tag  From a "<" to in front of the next one, so with the text behind the tag.
Way wayOf(QByteArrayView tag) {
    const qsizetype end = tag.indexOf('>');
    if (end < 2) {
        return Way::Unknown;
    }
    const QByteArrayView inside = tag.first(end);
    // With paired double quotes and no single ones the ">" ends the tag. Bytes are counted in a
    // byte, which is quick and enough to tell odd from even.
    unsigned char doubles = 0;
    unsigned char singles = 0;
    for (const char c : inside) {
        doubles = static_cast<unsigned char>(doubles + (c == '"' ? 1 : 0));
        singles = static_cast<unsigned char>(singles | (c == '\'' ? 1 : 0));
    }
    if (doubles % 2 != 0 || singles != 0) {
        return Way::Unknown;
    }
    switch (inside[1]) {
        case '/':
            return Way::Out;
        case '?':
            return inside.back() == '?' ? Way::None : Way::Unknown;
        case '!':
            return Way::Unknown;
        default:
            return inside.back() == '/' ? Way::None : Way::In;
    }
}

}  // namespace

bool surelyNestsWithinLimit(QByteArrayView document) {
    int depth = 0;
    qsizetype begin = document.indexOf('<');
    while (begin >= 0) {
        const qsizetype next = document.indexOf('<', begin + 1);
        const qsizetype end = next >= 0 ? next : document.size();
        switch (wayOf(document.sliced(begin, end - begin))) {
            case Way::In:
                ++depth;
                break;
            case Way::Out:
                --depth;
                break;
            case Way::None:
                break;
            case Way::Unknown:
                return false;
        }
        if (depth > kMaxXmlDepth) {
            return false;
        }
        begin = next;
    }
    return true;
}

// Steps without recursion, as the document may be of any depth here.
bool nestsTooDeep(const pugi::xml_document& document) {
    int depth = 1;
    pugi::xml_node at = document.first_child();
    while (at) {
        if (at.first_child()) {
            if (++depth > kMaxXmlDepth) {
                return true;
            }
            at = at.first_child();
            continue;
        }
        while (at && !at.next_sibling()) {
            at = at.parent();
            --depth;
        }
        at = at.next_sibling();
    }
    return false;
}

}  // namespace vellora
