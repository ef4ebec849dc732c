#include "xml/LORXMLNodeWrite.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "base/SafeFile.h"

namespace vellora {
namespace {

constexpr int kIndent = 4;

struct Document {
    std::string buffer;
    SafeFile* target = nullptr;
    int liveWriters = 0;
    qint64 tagsBegun = 0;
    qint64 tagsCompleted = 0;
    bool failed = false;  // a part is missing, for want of memory
};

Document g_document;

/// Adds a part to the document, or marks it as one that must not be written.
void build(const auto& part) {
    try {
        part();
    } catch (...) {
        g_document.failed = true;
        throw;
    }
}

void indent(int depth) {
    g_document.buffer.append(static_cast<std::size_t>(depth) * kIndent, ' ');
}

std::string_view escapeOf(char16_t c) {
    switch (c) {
        case u'&':
            return "&amp;";
        case u'<':
            return "&lt;";
        case u'>':
            return "&gt;";
        case u'"':
            return "&quot;";
        case u'\'':
            return "&apos;";
        default:
            return {};
    }
}

void appendUtf8(std::string& to, QStringView text) {
    const bool isAscii = std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
    if (isAscii) {
        const std::size_t begin = to.size();
        to.resize(begin + static_cast<std::size_t>(text.size()));
        std::ranges::transform(text, to.begin() + static_cast<std::ptrdiff_t>(begin),
                               [](QChar c) { return static_cast<char>(c.unicode()); });
        return;
    }
    const QByteArray bytes = text.toUtf8();
    to.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void appendEscaped(std::string& to, QStringView value) {
    qsizetype begin = 0;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (const std::string_view escape = escapeOf(value[i].unicode()); !escape.empty()) {
            appendUtf8(to, value.sliced(begin, i - begin));
            to += escape;
            begin = i + 1;
        }
    }
    appendUtf8(to, value.sliced(begin));
}

}  // namespace

int BeginXMLDocument() {
    if (g_document.liveWriters > 0) {
        return 0;
    }
    g_document.buffer.clear();
    g_document.tagsBegun = 0;
    g_document.tagsCompleted = 0;
    g_document.failed = false;
    return 1;
}

void WriteXMLHeader() {
    g_document.buffer = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
}

QString XMLBuffer() {
    return QString::fromStdString(g_document.buffer);
}

void SetXMLTarget(SafeFile* target) {
    g_document.target = target;
}

int WriteXMLBuffer() {
    const std::string text = std::exchange(g_document.buffer, {});
    if (g_document.target == nullptr || g_document.failed) {
        return 0;
    }
    const auto bytes = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    return bytes.isEmpty() || g_document.target->Write(bytes) ? 1 : 0;
}

CLORXMLNodeWrite::CLORXMLNodeWrite(int depth, QStringView name, bool textMode)
    : m_depth(depth), m_textMode(textMode) {
    build([&] {
        appendUtf8(m_name, name);
        indent(m_depth);
        g_document.buffer += '<';
        g_document.buffer += m_name;
    });
    ++g_document.tagsBegun;
    ++g_document.liveWriters;
}

CLORXMLNodeWrite::~CLORXMLNodeWrite() {
    try {
        Close();
    } catch (...) {  // WriteXMLBuffer tells
    }
}

void CLORXMLNodeWrite::BeginAttribute(QStringView name) {
    constexpr std::size_t kUsualLength = 240;
    if (m_attributes.empty()) {
        m_attributes.reserve(kUsualLength);
    }
    m_attributes += ' ';
    appendUtf8(m_attributes, name);
    m_attributes += "=\"";
}

void CLORXMLNodeWrite::AddAttribute(QStringView name, QStringView value) {
    BeginAttribute(name);
    appendEscaped(m_attributes, value);
    m_attributes += '"';
}

void CLORXMLNodeWrite::AddAttribute(QStringView name, std::int32_t value) {
    std::array<char, 12> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    BeginAttribute(name);
    m_attributes.append(digits.data(), end);
    m_attributes += '"';
}

void CLORXMLNodeWrite::AddColorAttribute(QStringView name, DWORD value) {
    constexpr int kLeastDigits = 6;
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
    BeginAttribute(name);
    m_attributes += "0x";
    for (auto length = end - digits.data(); length < kLeastDigits; ++length) {
        m_attributes += '0';
    }
    m_attributes.append(digits.data(), end);
    m_attributes += '"';
}

void CLORXMLNodeWrite::AddRGBColorAttribute(QStringView name, COLORREF colour) {
    AddColorAttribute(name, (static_cast<DWORD>(redOf(colour)) << 16U) |
                                (static_cast<DWORD>(greenOf(colour)) << 8U) |
                                static_cast<DWORD>(blueOf(colour)));
}

void CLORXMLNodeWrite::SetText(QStringView text) {
    appendEscaped(m_text, text);
}

void CLORXMLNodeWrite::Flush() {
    build([&] {
        g_document.buffer += m_attributes;
        if (!m_text.empty()) {
            g_document.buffer += '>';
            g_document.buffer += m_text;
        } else if (!m_textMode) {
            g_document.buffer += ">\n";
        }
    });
    m_attributes.clear();
    if (!m_text.empty() || !m_textMode) {
        ++g_document.tagsCompleted;
    }
}

void CLORXMLNodeWrite::Close() {
    if (m_closed) {
        return;
    }
    m_closed = true;
    --g_document.liveWriters;
    build([&] { WriteEnd(); });
}

void CLORXMLNodeWrite::WriteEnd() const {
    if (g_document.tagsBegun == g_document.tagsCompleted) {
        if (!m_textMode) {
            indent(m_depth);
        }
        g_document.buffer += "</";
        g_document.buffer += m_name;
        g_document.buffer += ">\n";
        ++g_document.tagsBegun;
        ++g_document.tagsCompleted;
    } else if (g_document.tagsBegun == g_document.tagsCompleted + 1) {
        g_document.buffer += "/>\n";
        ++g_document.tagsCompleted;
    }
}

}  // namespace vellora
