#include "xml/LORXMLNodeWrite.h"

#include <array>
#include <charconv>

#include "base/SafeFile.h"

namespace vellora {
namespace {

constexpr int kIndent = 4;

struct Document {
    QString buffer;
    SafeFile* target = nullptr;
    int liveWriters = 0;
    qint64 tagsBegun = 0;
    qint64 tagsCompleted = 0;
};

Document g_document;

void indent(int depth) {
    g_document.buffer.resize(g_document.buffer.size() + qsizetype{depth} * kIndent, u' ');
}

QStringView escapeOf(QChar c) {
    switch (c.unicode()) {
        case u'&':
            return u"&amp;";
        case u'<':
            return u"&lt;";
        case u'>':
            return u"&gt;";
        case u'"':
            return u"&quot;";
        case u'\'':
            return u"&apos;";
        default:
            return {};
    }
}

void appendEscaped(QString& to, QStringView value) {
    qsizetype begin = 0;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (const QStringView escape = escapeOf(value[i]); !escape.empty()) {
            to += value.sliced(begin, i - begin);
            to += escape;
            begin = i + 1;
        }
    }
    to += value.sliced(begin);
}

}  // namespace

int BeginXMLDocument() {
    if (g_document.liveWriters > 0) {
        return 0;
    }
    g_document.buffer.clear();
    g_document.tagsBegun = 0;
    g_document.tagsCompleted = 0;
    return 1;
}

void WriteXMLHeader() {
    g_document.buffer = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n");
}

const QString& XMLBuffer() {
    return g_document.buffer;
}

void SetXMLTarget(SafeFile* target) {
    g_document.target = target;
}

int WriteXMLBuffer() {
    const QByteArray bytes = g_document.buffer.toUtf8();
    g_document.buffer = QString();
    if (g_document.target == nullptr) {
        return 0;
    }
    return bytes.isEmpty() || g_document.target->Write(bytes) ? 1 : 0;
}

CLORXMLNodeWrite::CLORXMLNodeWrite(int depth, QStringView name, bool textMode)
    : m_depth(depth), m_textMode(textMode), m_name(name.toString()) {
    ++g_document.liveWriters;
    indent(m_depth);
    g_document.buffer += u'<';
    g_document.buffer += m_name;
    ++g_document.tagsBegun;
}

CLORXMLNodeWrite::~CLORXMLNodeWrite() {
    Close();
}

void CLORXMLNodeWrite::BeginAttribute(QStringView name) {
    m_attributes += u' ';
    m_attributes += name;
    m_attributes += u"=\"";
}

void CLORXMLNodeWrite::AddAttribute(QStringView name, QStringView value) {
    BeginAttribute(name);
    appendEscaped(m_attributes, value);
    m_attributes += u'"';
}

void CLORXMLNodeWrite::AddAttribute(QStringView name, std::int32_t value) {
    std::array<char, 12> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    BeginAttribute(name);
    m_attributes += QLatin1StringView(digits.data(), end);
    m_attributes += u'"';
}

void CLORXMLNodeWrite::AddColorAttribute(QStringView name, DWORD value) {
    constexpr int kLeastDigits = 6;
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
    BeginAttribute(name);
    m_attributes += u"0x";
    for (auto length = end - digits.data(); length < kLeastDigits; ++length) {
        m_attributes += u'0';
    }
    m_attributes += QLatin1StringView(digits.data(), end);
    m_attributes += u'"';
}

void CLORXMLNodeWrite::AddRGBColorAttribute(QStringView name, COLORREF colour) {
    AddColorAttribute(name, (static_cast<DWORD>(redOf(colour)) << 16U) |
                                (static_cast<DWORD>(greenOf(colour)) << 8U) |
                                static_cast<DWORD>(blueOf(colour)));
}

void CLORXMLNodeWrite::SetText(QStringView text) {
    m_text += text;
}

void CLORXMLNodeWrite::Flush() {
    g_document.buffer += m_attributes;
    m_attributes.clear();
    if (!m_text.isEmpty()) {
        g_document.buffer += u'>';
        appendEscaped(g_document.buffer, m_text);
        ++g_document.tagsCompleted;
    } else if (!m_textMode) {
        g_document.buffer += u">\n";
        ++g_document.tagsCompleted;
    }
}

void CLORXMLNodeWrite::Close() {
    if (m_closed) {
        return;
    }
    if (g_document.tagsBegun == g_document.tagsCompleted) {
        if (!m_textMode) {
            indent(m_depth);
        }
        g_document.buffer += u"</";
        g_document.buffer += m_name;
        g_document.buffer += u">\n";
        ++g_document.tagsBegun;
        ++g_document.tagsCompleted;
    } else if (g_document.tagsBegun == g_document.tagsCompleted + 1) {
        g_document.buffer += u"/>\n";
        ++g_document.tagsCompleted;
    }
    --g_document.liveWriters;
    m_closed = true;
}

}  // namespace vellora
