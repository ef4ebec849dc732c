#include "project/Findings.h"

#include <QRegularExpression>
#include <algorithm>

#include "xml/XmlPlaces.h"

namespace vellora {
namespace {

constexpr std::size_t kMaxFindings = 1000;

/// Whether two different defaults read as the same number.
template <class Number, class Read>
bool hasNumber(Read read) {
    Number first = 0;
    Number second = 1;
    return read(first) == kXmlFound && read(second) == kXmlFound && first == second;
}

bool report(bool isNumber, const XmlNode& node, const char* name, Findings& findings) {
    if (!isNumber) {
        QString text;
        const bool isThere = node.GetAttribute(name, text) == kXmlFound;
        findings.add(node, isThere ? QStringLiteral("%1 \"%2\" is no number")
                                         .arg(QLatin1StringView(name), text.left(40))
                                   : QStringLiteral("%1 is missing").arg(QLatin1StringView(name)));
    }
    return isNumber;
}

}  // namespace

void Findings::add(const XmlNode& node, const QString& message) {
    if (!isFull()) {
        // The parser names the place of the element's name, behind its "<".
        m_found.push_back({node.Offset() - 1, message});
    }
}

bool Findings::isFull() const {
    return m_found.size() + 1 >= kMaxFindings;
}

std::vector<ProjectFinding> Findings::placedIn(const QByteArray& document) {
    if (isFull()) {
        m_found.push_back({document.size(), QStringLiteral("and more")});
    }
    std::ranges::stable_sort(m_found, {}, &Finding::offset);
    XmlPlaces places(document);
    std::vector<ProjectFinding> placed;
    for (const Finding& finding : m_found) {
        const XmlPlace place = places.of(finding.offset);
        placed.push_back({place.line, place.column, finding.message});
    }
    return placed;
}

bool checkNumber(const XmlNode& node, const char* name, Findings& findings) {
    const bool isNumber =
        hasNumber<std::int32_t>([&](std::int32_t& out) { return node.GetIntAttribute(name, out); });
    return report(isNumber, node, name, findings);
}

bool checkFraction(const XmlNode& node, const char* name, Findings& findings) {
    static const QRegularExpression number(QStringLiteral("^\\s*[+-]?(\\d|\\.\\d)"));
    QString text;
    const bool isNumber =
        node.GetAttribute(name, text) == kXmlFound && number.match(text).hasMatch();
    return report(isNumber, node, name, findings);
}

bool checkHexNumber(const XmlNode& node, const char* name, Findings& findings) {
    const bool isNumber = hasNumber<std::uint32_t>(
        [&](std::uint32_t& out) { return node.GetHexAttribute(name, out); });
    return report(isNumber, node, name, findings);
}

void checkChildNames(const XmlNode& node, std::initializer_list<const char*> names,
                     Findings& findings) {
    for (XmlNode child = node.FirstElement(); child && !findings.isFull();
         child = child.NextElement()) {
        const QString name = child.Name();
        if (std::ranges::none_of(
                names, [&](const char* known) { return name == QLatin1StringView(known); })) {
            findings.add(child, QStringLiteral("unknown element %1").arg(name.left(40)));
        }
    }
}

}  // namespace vellora
