#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

#include <pugixml.hpp>

#include "xml/XmlNode.h"
#include "xml/XmlPlaces.h"

namespace vellora {

/// Why a document cannot be read. Line and column count from 1 and are 0 when the file itself
/// cannot be read.
struct XmlError {
    int line = 0;
    int column = 0;
    QString message;

    /// "line 3, column 7: message", or the message alone.
    [[nodiscard]] QString Text() const;
};

/// The bytes of an XML file, or why there are none.
bool readXmlFile(const QString& path, QByteArray& bytes, XmlError& error);

/// A document as the parser sees it and counts in it: in UTF-8 without a byte order mark (Latin-1
/// stays as it is), and with line feeds where an editor or a version-control system has ended all
/// lines by CR LF, as the first line tells.
QByteArray asParsed(QByteArray document);

/// Reads an XML file and answers questions by XPath.
///
/// UTF-8, UTF-16, UTF-32 and Latin-1 documents are read. Values keep their line breaks, tabs and
/// blanks as they stand in the file, but for a file whose first line ends in CR LF: there each
/// CR LF is a line feed. No entity but the five of the markup and character references
/// is expanded and nothing outside the file is opened. Nothing here throws: a document that cannot
/// be read is empty, and a query that is no XPath matches nothing.
class CXMLParse {
public:
    CXMLParse() = default;
    virtual ~CXMLParse() = default;
    CXMLParse(const CXMLParse&) = delete;
    CXMLParse& operator=(const CXMLParse&) = delete;

    /// Loads the file.
    /// @return 1, or 0 when the file is missing, larger than 256 MiB, malformed or nested more
    ///         than 256 elements deep; `Error` then says why.
    int Open(const QString& path);

    /// The same from memory.
    int OpenText(const QByteArray& document);

    [[nodiscard]] const XmlError& Error() const { return m_error; }

    /// Makes paths that do not begin with a slash start at this element of the document, so that a
    /// reader of one element need not search the whole document for it. A null node stands for
    /// the document again.
    void SetContext(const XmlNode& node) { m_context = node; }

    /// @name Queries
    /// The node is the first that matches the XPath. Results as in `XmlNode`.
    /// @{
    int GetAttribute(const QString& xpath, const QString& name, QString& out) const;
    int GetIntAttribute(const QString& xpath, const QString& name, std::int32_t& out) const;
    int GetHexAttribute(const QString& xpath, const QString& name, std::uint32_t& out) const;
    int GetColorAttribute(const QString& xpath, const QString& name, COLORREF& out) const;
    /// @return `kXmlFound`, or -1 when no node matches.
    int GetNodeText(const QString& xpath, QString& out) const;
    /// @}

    /// The first node that matches, to walk on from. A query may read the whole document: ask once,
    /// then use the node. The name of a child of the context is found at once.
    [[nodiscard]] XmlNode Select(const QString& xpath) const;

    /// All nodes that match, in document order.
    [[nodiscard]] std::vector<XmlNode> SelectAll(const QString& xpath) const;

private:
    /// Parses the bytes in place; the document refers to them from then on.
    pugi::xml_parse_result Parse(QByteArray bytes);
    int Refuse(XmlError error);
    int RefuseWhenOdd();

    QString m_path;
    QByteArray m_bytes;
    bool m_isSurelyFlat = false;
    pugi::xml_document m_document;
    XmlNode m_context;
    XmlError m_error;
};

}  // namespace vellora
