#pragma once

#include <QString>
#include <string>

#include <vellora/base/Types.h>

namespace vellora {

class SafeFile;

/// @file
/// The streaming XML writer: one document at a time, built in memory and written at once.
///
/// Order of use: `BeginXMLDocument`, `WriteXMLHeader`, writer objects made and destroyed in
/// document order (children within the life of their parent, each flushed once its attributes are
/// added), `SetXMLTarget`, `WriteXMLBuffer`, `SetXMLTarget(nullptr)`. The state is module-wide and
/// unguarded: one thread writes one document.
///
/// Values are copied as they are but for the five characters of the markup; line breaks and tabs
/// stand unescaped, in attributes too, and `CXMLParse` reads them back unchanged.
///
/// A document that lacks a tag for want of memory is never written: `WriteXMLBuffer` refuses it.

/// Starts a document: empties the buffer and zeroes the tag counters.
/// @return 1, or 0 (and nothing changes) while a writer object is alive.
int BeginXMLDocument();

/// Replaces the buffer with the XML declaration.
void WriteXMLHeader();

/// The text built so far.
QString XMLBuffer();

/// The opened file that the document goes to; null for none. Not owned.
void SetXMLTarget(SafeFile* target);

/// Writes the buffer, which is UTF-8, to the target and empties it.
/// @return 1, or 0 when writing failed, no target is set or the document lacks a part.
int WriteXMLBuffer();

/// One element being written.
class CLORXMLNodeWrite {
public:
    /// Begins the start tag.
    /// @param depth     Nesting depth, four spaces of indentation each.
    /// @param textMode  True for an element whose end tag follows its text on the same line.
    CLORXMLNodeWrite(int depth, QStringView name, bool textMode = false);
    virtual ~CLORXMLNodeWrite();
    CLORXMLNodeWrite(const CLORXMLNodeWrite&) = delete;
    CLORXMLNodeWrite& operator=(const CLORXMLNodeWrite&) = delete;

    /// Attributes wait for `Flush`, in the order added.
    void AddAttribute(QStringView name, QStringView value);
    void AddAttribute(QStringView name, std::int32_t value);
    /// The colour's number as it is: "0xbbggrr".
    void AddColorAttribute(QStringView name, DWORD value);
    /// The colour as "0xrrggbb".
    void AddRGBColorAttribute(QStringView name, COLORREF colour);

    /// Appends to the element's text, which waits for `Flush`.
    void SetText(QStringView text);

    /// Writes the attributes. The start tag ends when there is a text, or when the element is not
    /// in text mode; a text-mode element without text leaves it open for a later flush.
    void Flush();

    /// Writes the end tag, or "/>" while the start tag is open. The destructor closes an element
    /// that is not yet closed, and never throws.
    void Close();

private:
    void WriteEnd() const;
    void BeginAttribute(QStringView name);

    int m_depth;
    bool m_textMode;
    bool m_closed = false;
    std::string m_name;  // all in UTF-8, as they will stand in the file
    std::string m_text;
    std::string m_attributes;
};

}  // namespace vellora
