#include "model/SvgCheck.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>

#include "base/JpegScans.h"
#include "base/PictureReader.h"
#include "metafile/Limits.h"
#include "model/SvgSource.h"

namespace vellora {
namespace {

constexpr const char* kUnusable = "not a usable SVG picture";
constexpr const char* kTooLarge = "the picture is too large";
constexpr const char* kTooDeep = "the picture is nested too deeply";
constexpr const char* kTooMuchWork = "the picture takes too much work to draw";
constexpr const char* kOtherFiles = "the picture refers to other files";
constexpr const char* kItself = "the picture refers to itself";
constexpr const char* kBrokenImage = "an image in the picture cannot be read";

/// Characters that are read in the time of an element.
constexpr double kElementLength = 64;

/// The renderer looks at names without their prefix.
QStringView localName(QStringView name) {
    return name.sliced(name.lastIndexOf(u':') + 1);
}

bool takesOver(QStringView name) {
    return name == u"use" || name == u"linearGradient" || name == u"radialGradient" ||
           name == u"pattern";
}

}  // namespace

SvgCheck::SvgCheck(const QByteArray& text) : m_xml(text) {
    m_xml.setNamespaceProcessing(false);  // like the renderer, which takes undeclared prefixes
}

const char* SvgCheck::run() {
    while (!m_xml.atEnd() && m_fault == nullptr) {
        switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                enter();
                break;
            case QXmlStreamReader::EndElement:
                m_open.pop_back();
                break;
            case QXmlStreamReader::Characters:
                readText();
                break;
            case QXmlStreamReader::ProcessingInstruction:
                if (m_xml.processingInstructionTarget() == u"xml-stylesheet" &&
                    m_xml.processingInstructionData().contains(u"href")) {
                    m_fault = kOtherFiles;
                }
                break;
            default:
                break;
        }
    }
    if (m_fault != nullptr) {
        return m_fault;
    }
    if (m_xml.hasError() || m_nodes.empty()) {
        return kUnusable;
    }
    if (m_styleParts * m_styled > kMaxSvgStyling) {
        return kTooMuchWork;
    }
    if (const char* const fault = expand(0, 1)) {
        return fault;
    }
    return m_nodes.front().expansion > kMaxSvgExpansion ? kTooMuchWork : nullptr;
}

void SvgCheck::enter() {
    if (m_nodes.size() == kMaxSvgElements) {
        m_fault = kTooLarge;
        return;
    }
    if (m_open.size() == kMaxSvgDepth) {
        m_fault = kTooDeep;
        return;
    }
    const QStringView name = localName(m_xml.qualifiedName());
    Node node;
    for (const QXmlStreamAttribute& attribute : m_xml.attributes()) {
        const QStringView value = attribute.value();
        node.size += static_cast<double>(value.size()) / kElementLength;
        const QStringView key = localName(attribute.qualifiedName());
        if (key == u"class" || key == u"id") {
            node.styling += static_cast<double>(value.size()) / kElementLength;
        }
        if (key == u"id") {
            m_targets[value.toString()].nodes.push_back(m_nodes.size());
        } else if (key == u"href" && takesOver(name)) {
            const QStringView link = value.trimmed();
            node.reference = link.sliced(link.startsWith(u'#') ? 1 : 0).toString();
        }
    }
    node.styles = name == u"style";
    if (!m_open.empty()) {
        Node& parent = m_nodes[m_open.back()];
        parent.children.push_back(m_nodes.size());
        node.styling += parent.styling;
        node.styles = node.styles || parent.styles;
    }
    m_styled += node.styling;
    m_open.push_back(m_nodes.size());
    m_nodes.push_back(std::move(node));
    if (name == u"image" || name == u"feImage") {
        m_fault = checkImage();
    }
}

void SvgCheck::readText() {
    if (m_open.empty()) {
        return;
    }
    Node& node = m_nodes[m_open.back()];
    node.size += static_cast<double>(m_xml.text().size()) / kElementLength;
    if (node.styles) {
        // Each is a part of a selector or a declaration, and is looked at for each element.
        m_styleParts += static_cast<double>(std::ranges::count_if(
            m_xml.text(), [](QChar sign) { return sign == u',' || sign == u'{' || sign == u';'; }));
    }
}

const char* SvgCheck::checkImage() {
    for (const QXmlStreamAttribute& attribute : m_xml.attributes()) {
        if (localName(attribute.qualifiedName()) != u"href") {
            continue;
        }
        if (const QStringView link = attribute.value().trimmed(); !link.isEmpty()) {
            if (const char* const fault = checkData(link)) {
                return fault;
            }
        }
    }
    return nullptr;
}

/// What the renderer cannot decode it takes for the name of a file. So this decodes, and takes
/// nothing but the one way of writing data that all versions of the renderer understand alike.
const char* SvgCheck::checkData(QStringView data) {
    const qsizetype comma = data.indexOf(u',');
    if (!data.startsWith(u"data:") || comma != data.lastIndexOf(u',') ||
        !data.first(std::max<qsizetype>(comma, 0)).endsWith(u";base64")) {
        return kOtherFiles;
    }
    QByteArray bytes = QByteArray::fromBase64(data.sliced(comma + 1).toLatin1());
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    const PictureKind kind = preparePicture(reader);
    const QSize size = reader.size();
    if (kind == PictureKind::NoPicture || size.isEmpty()) {
        return kBrokenImage;
    }
    m_imagePixels += qint64{size.width()} * size.height();
    if (kind == PictureKind::TooLarge || m_imagePixels > metafile::kMaxBitmapPixels) {
        return kTooLarge;
    }
    if (hasExcessiveScans(bytes)) {
        return "the picture has too many scans";
    }
    return reader.read().isNull() ? kBrokenImage : nullptr;
}

const char* SvgCheck::expand(std::size_t index, int level) {
    Node& node = m_nodes[index];
    if (node.open) {
        return kItself;
    }
    if (level + node.height > kMaxSvgNesting) {
        return kTooDeep;
    }
    if (node.expansion >= 0) {
        return nullptr;
    }
    node.open = true;
    double expansion = node.size;
    for (const std::size_t child : node.children) {
        if (const char* const fault = expand(child, level + 1)) {
            return fault;
        }
        expansion += m_nodes[child].expansion;
        node.height = std::max(node.height, m_nodes[child].height + 1);
    }
    if (!node.reference.isEmpty()) {
        if (const auto target = m_targets.find(node.reference); target != m_targets.end()) {
            if (const char* const fault = expandTarget(*target, level + 1)) {
                return fault;
            }
            expansion += target->expansion;
            node.height = std::max(node.height, target->height + 1);
        }
    }
    node.expansion = expansion;
    node.open = false;
    return nullptr;
}

const char* SvgCheck::expandTarget(Target& target, int level) {
    if (target.expansion >= 0) {
        return level + target.height > kMaxSvgNesting ? kTooDeep : nullptr;
    }
    double expansion = 0;
    for (const std::size_t index : target.nodes) {
        if (const char* const fault = expand(index, level)) {
            return fault;
        }
        expansion += m_nodes[index].expansion;
        target.height = std::max(target.height, m_nodes[index].height);
    }
    target.expansion = expansion;
    return nullptr;
}

}  // namespace vellora
