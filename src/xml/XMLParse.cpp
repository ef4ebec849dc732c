#include "xml/XMLParse.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <exception>
#include <optional>

#include "xml/Nesting.h"

namespace vellora {
namespace {

constexpr qint64 kMaxFileSize = qint64{256} << 20;

// Without conversion of line ends and attribute blanks: what was written is what is read. Blanks
// between tags make no nodes, which are two thirds of all in an indented file.
constexpr unsigned kParseOptions =
    pugi::parse_cdata | pugi::parse_escapes | pugi::parse_ws_pcdata_single;

/// The name where a path is nothing but a short name of Latin letters, else an empty text.
std::array<char, 32> plainNameOf(const QString& path) {
    std::array<char, 32> name{};
    if (path.size() >= static_cast<qsizetype>(name.size())) {
        return name;
    }
    for (qsizetype i = 0; i < path.size(); ++i) {
        const char16_t c = path[i].unicode();
        if (c != u'_' && (c >= 0x80 || !QChar(c).isLetter())) {
            return {};
        }
        name[static_cast<std::size_t>(i)] = static_cast<char>(c);
    }
    return name;
}

XmlError errorAt(const QByteArray& document, const pugi::xml_parse_result& result) {
    const XmlPlace place = XmlPlaces(asParsed(document)).of(result.offset);
    return {place.line, place.column, QString::fromLatin1(result.description())};
}

/// The encoding that the first bytes tell; none for plain UTF-8 and for Latin-1.
std::optional<QStringConverter::Encoding> encodingOf(const QByteArray& document) {
    return QStringConverter::encodingForData(document, u'<');
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

QByteArray asParsed(QByteArray document) {
    constexpr qsizetype kByteOrderMark = 3;
    const auto encoding = encodingOf(document);
    if (encoding == QStringConverter::Utf8) {
        document.remove(0, kByteOrderMark);
    } else if (encoding) {
        QStringDecoder decode(*encoding);
        document = QString(decode(document)).toUtf8();
    }
    const qsizetype lineEnd = document.indexOf('\n');
    if (lineEnd > 0 && document[lineEnd - 1] == '\r') {
        document.replace("\r\n", "\n");
    }
    return document;
}

pugi::xml_parse_result CXMLParse::Parse(QByteArray bytes) {
    m_error = {};
    m_context = {};
    m_document.reset();
    // Without this the parser would look for an encoding once more.
    const auto encoding = encodingOf(bytes) ? pugi::encoding_utf8 : pugi::encoding_auto;
    m_bytes = asParsed(std::move(bytes));
    m_isSurelyFlat = surelyNestsWithinLimit(m_bytes);
    return m_document.load_buffer_inplace(m_bytes.data(), static_cast<std::size_t>(m_bytes.size()),
                                          kParseOptions, encoding);
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
    if (!m_isSurelyFlat && nestsTooDeep(m_document)) {
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
    if (const pugi::xml_parse_result result = Parse(document); !result) {
        return Refuse(errorAt(document, result));
    }
    return RefuseWhenOdd();
}

XmlNode CXMLParse::Select(const QString& xpath) const {
    const pugi::xml_node context = m_context ? m_context.m_node : m_document;
    if (const auto name = plainNameOf(xpath); name[0] != '\0') {
        return XmlNode(context.child(name.data()));
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
