#include "xml/XMLParse.h"

#include <QFile>
#include <QFileInfo>
#include <exception>

namespace vellora {
namespace {

constexpr qint64 kMaxFileSize = qint64{1} << 30;
constexpr int kMaxDepth = 256;

// Without conversion of line ends and attribute blanks: what was written is what is read.
constexpr unsigned kParseOptions = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_ws_pcdata;

/// Whether any node lies deeper than the limit. Steps without recursion, as the document may be
/// of any depth here.
bool nestsTooDeep(const pugi::xml_document& document) {
    int depth = 1;
    pugi::xml_node at = document.first_child();
    while (at) {
        if (at.first_child()) {
            if (++depth > kMaxDepth) {
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

XmlError errorAt(const QByteArray& document, const pugi::xml_parse_result& result) {
    const auto offset = qBound(qsizetype{0}, qsizetype{result.offset}, document.size());
    const QByteArray before = document.first(offset);
    const auto line = before.count('\n') + 1;
    const auto column = offset - (before.lastIndexOf('\n') + 1) + 1;
    return {static_cast<int>(line), static_cast<int>(column),
            QString::fromLatin1(result.description())};
}

}  // namespace

int CXMLParse::Refuse(XmlError error) {
    m_document.reset();
    m_error = std::move(error);
    return 0;
}

int CXMLParse::Open(const QString& path) {
    m_path = path;
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) {
        return Refuse({0, 0, file.errorString()});
    }
    if (file.isSequential() || file.size() > kMaxFileSize) {
        return Refuse({0, 0, QStringLiteral("Not a file of at most 1 GiB")});
    }
    return OpenText(file.readAll());
}

int CXMLParse::OpenText(const QByteArray& document) {
    m_error = {};
    const pugi::xml_parse_result result = m_document.load_buffer(
        document.constData(), static_cast<std::size_t>(document.size()), kParseOptions);
    if (!result) {
        return Refuse(errorAt(document, result));
    }
    if (nestsTooDeep(m_document)) {
        return Refuse({1, 1, QStringLiteral("The elements are nested too deep")});
    }
    return 1;
}

XmlNode CXMLParse::Select(const QString& xpath) const {
    try {
        return XmlNode(m_document.select_node(xpath.toUtf8().constData()).node());
    } catch (const std::exception&) {
        return {};
    }
}

std::vector<XmlNode> CXMLParse::SelectAll(const QString& xpath) const {
    std::vector<XmlNode> nodes;
    try {
        pugi::xpath_node_set found = m_document.select_nodes(xpath.toUtf8().constData());
        found.sort();
        nodes.reserve(found.size());
        for (const pugi::xpath_node& match : found) {
            nodes.emplace_back(match.node());
        }
    } catch (const std::exception&) {
        nodes.clear();
    }
    return nodes;
}

int CXMLParse::GetAttribute(const QString& xpath, const QString& name, QString& out) const {
    return Select(xpath).GetAttribute(name.toUtf8().constData(), out);
}

int CXMLParse::GetIntAttribute(const QString& xpath, const QString& name, std::int32_t& out) const {
    return Select(xpath).GetIntAttribute(name.toUtf8().constData(), out);
}

int CXMLParse::GetHexAttribute(const QString& xpath, const QString& name,
                               std::uint32_t& out) const {
    return Select(xpath).GetHexAttribute(name.toUtf8().constData(), out);
}

int CXMLParse::GetColorAttribute(const QString& xpath, const QString& name, COLORREF& out) const {
    return Select(xpath).GetColorAttribute(name.toUtf8().constData(), out);
}

int CXMLParse::GetNodeText(const QString& xpath, QString& out) const {
    const XmlNode node = Select(xpath);
    if (!node) {
        return -1;
    }
    out = node.Text();
    return kXmlFound;
}

}  // namespace vellora
