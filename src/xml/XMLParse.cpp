#include "xml/XMLParse.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>
#include <exception>

namespace vellora {
namespace {

constexpr qint64 kMaxFileSize = qint64{256} << 20;
constexpr int kMaxDepth = 256;

// Without conversion of line ends and attribute blanks: what was written is what is read. Blanks
// between tags make no nodes, which are two thirds of all in an indented file.
constexpr unsigned kParseOptions =
    pugi::parse_cdata | pugi::parse_escapes | pugi::parse_ws_pcdata_single;

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

bool isPlainName(const QString& path) {
    return !path.isEmpty() && std::ranges::all_of(path, [](QChar c) {
        return c == u'_' || (c.unicode() < 0x80 && c.isLetterOrNumber());
    });
}

XmlError errorAt(const QByteArray& document, const pugi::xml_parse_result& result) {
    // The parser counts the byte order mark, as three bytes in every encoding.
    const bool hasMark = QStringConverter::encodingForData(document).has_value();
    const XmlPlace place = XmlPlaces(asUtf8(document)).of(result.offset - (hasMark ? 3 : 0));
    return {place.line, place.column, QString::fromLatin1(result.description())};
}

}  // namespace

QString XmlError::Text() const {
    return line == 0 ? message
                     : QStringLiteral("line %1, column %2: %3").arg(line).arg(column).arg(message);
}

bool readXmlFile(const QString& path, QByteArray& bytes, XmlError& error) {
    QFile file(path);
    if (path.isEmpty() || QFileInfo(path).isDir()) {
        error = {0, 0, QStringLiteral("Not a file")};
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        error = {0, 0, file.errorString()};
        return false;
    }
    if (file.isSequential() || file.size() > kMaxFileSize) {
        error = {0, 0, QStringLiteral("Not a file of at most 256 MiB")};
        return false;
    }
    bytes = file.readAll();
    return true;
}

QByteArray asUtf8(const QByteArray& document) {
    const auto encoding = QStringConverter::encodingForData(document, u'<');
    if (encoding && encoding != QStringConverter::Utf8) {
        QStringDecoder decode(*encoding);
        return QString(decode(document)).toUtf8();
    }
    constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
    return document.startsWith(kByteOrderMark) ? document.sliced(3) : document;
}

pugi::xml_parse_result CXMLParse::Parse(QByteArray bytes) {
    m_error = {};
    m_context = {};
    m_document.reset();
    m_bytes = std::move(bytes);
    return m_document.load_buffer_inplace(m_bytes.data(), static_cast<std::size_t>(m_bytes.size()),
                                          kParseOptions);
}

int CXMLParse::Refuse(XmlError error) {
    m_document.reset();
    m_bytes.clear();
    m_error = std::move(error);
    return 0;
}

int CXMLParse::RefuseWhenOdd() {
    const auto elements = std::ranges::count_if(
        m_document.children(), [](const auto& node) { return node.type() == pugi::node_element; });
    if (elements > 1) {
        return Refuse({1, 1, QStringLiteral("There is more than one outermost element")});
    }
    if (nestsTooDeep(m_document)) {
        return Refuse({1, 1, QStringLiteral("The elements are nested too deep")});
    }
    return 1;
}

int CXMLParse::Open(const QString& path) {
    m_path = path;
    QByteArray bytes;
    XmlError error;
    if (!readXmlFile(path, bytes, error)) {
        return Refuse(error);
    }
    if (const pugi::xml_parse_result result = Parse(std::move(bytes)); !result) {
        // Parsing changed the bytes.
        return readXmlFile(path, bytes, error) ? Refuse(errorAt(bytes, result)) : Refuse(error);
    }
    return RefuseWhenOdd();
}

int CXMLParse::OpenText(const QByteArray& document) {
    const QByteArray copy(document.constData(), document.size());
    if (const pugi::xml_parse_result result = Parse(copy); !result) {
        return Refuse(errorAt(document, result));
    }
    return RefuseWhenOdd();
}

XmlNode CXMLParse::Select(const QString& xpath) const {
    const pugi::xml_node context = m_context ? m_context.m_node : m_document;
    if (isPlainName(xpath)) {
        return XmlNode(context.child(xpath.toLatin1().constData()));
    }
    try {
        return XmlNode(context.select_node(xpath.toUtf8().constData()).node());
    } catch (const std::exception&) {
        return {};
    }
}

std::vector<XmlNode> CXMLParse::SelectAll(const QString& xpath) const {
    std::vector<XmlNode> nodes;
    try {
        const pugi::xml_node context = m_context ? m_context.m_node : m_document;
        pugi::xpath_node_set found = context.select_nodes(xpath.toUtf8().constData());
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
