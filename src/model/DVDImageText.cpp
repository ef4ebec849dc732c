#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

#include <vellora/model/DVDImageText.h>
#include <vellora/text/EffectCatalogue.h>
#include <vellora/text/PhotoTextEffect.h>

#include "base/XmlText.h"
#include "model/SelectionMarks.h"
#include "text/EffectXml.h"
#include "text/SharedStyle.h"
#include "xml/LORXMLNodeWrite.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

/// The size in points at which texts are laid out.
constexpr double kLayoutPoints = 120.0;
/// What is drawn of a text is a little larger than the text, for its layers.
constexpr double kRoomForLayers = 1.2;
/// Beyond any canvas, and within what a painter's clip can hold.
constexpr double kFarAway = 1'000'000.0;

/// What the writer puts between a text and its effect: a line break and the effect's indentation.
/// The reader takes off exactly that, so that a text keeps its own line breaks and blanks.
const QString kBeforeEffect = QStringLiteral("\n                ");

void readStyle(const XmlNode& element, TextStyle& style) {
    if (QString font; element.GetAttribute("font", font) == kXmlFound) {
        style.SetFont(font);
    }
    element.GetHexAttribute("color", style.colour);
    element.GetIntAttribute("size", style.size);
    element.GetIntAttribute("bold", style.bold);
    element.GetIntAttribute("italic", style.italic);
    element.GetIntAttribute("underline", style.underline);
    element.GetIntAttribute("align", style.align);
    element.GetIntAttribute("shadow", style.shadow);
    element.GetHexAttribute("s_color", style.shadow_colour);
    element.GetIntAttribute("so_x", style.shadow_x);
    element.GetIntAttribute("so_y", style.shadow_y);
    if (!readTextEffect(element.Child("text_effect"), style.effect)) {
        style.effect = style.MakeEffect();
    }
}

void addStyle(CLORXMLNodeWrite& element, const TextStyle& style) {
    element.AddAttribute(u"font", style.GetFont());
    element.AddColorAttribute(u"color", style.colour);
    element.AddAttribute(u"size", style.size);
    element.AddAttribute(u"bold", style.bold);
    element.AddAttribute(u"italic", style.italic);
    element.AddAttribute(u"underline", style.underline);
    element.AddAttribute(u"align", style.align);
    element.AddAttribute(u"shadow", style.shadow);
    element.AddColorAttribute(u"s_color", style.shadow_colour);
    element.AddAttribute(u"so_x", style.shadow_x);
    element.AddAttribute(u"so_y", style.shadow_y);
}

QFont layoutFont(const TextStyle& style) {
    return CPhotoTextEffect::LayoutFont(style.effect.GetFontName(), style.bold != 0,
                                        style.italic != 0, style.underline != 0);
}

int truncated(double value) {
    constexpr double kLow = std::numeric_limits<int>::min();
    constexpr double kHigh = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, kLow, kHigh));
}

/// The fonts' names are compared without regard to letter case, all else exactly.
bool isSameStyle(const TextStyle& a, const TextStyle& b) {
    if (a.GetFont().compare(b.GetFont(), Qt::CaseInsensitive) != 0) {
        return false;
    }
    TextStyle sameFont = b;
    std::ranges::copy(a.font, sameFont.font);
    return a == sameFont;
}

}  // namespace

CDVDImageText::CDVDImageText(CSpriteOwner* owner, const QString& baseFolder)
    : CDVDImageSprite(owner, kTextSprite), m_name(baseFolder), m_style(defaultStyle()) {}

CDVDImageText::CDVDImageText(const CDVDImageText& other) = default;

CDVDImageText::~CDVDImageText() = default;

QPoint CDVDImageText::GetHandlePoint(QPoint offset, int index) const {
    return CDVDImageSprite::GetHandlePoint(offset, index);
}

QSize CDVDImageText::GetSize() const {
    if (GetShownText().isEmpty()) {
        return CDVDImageSprite::GetSize();
    }
    if (!m_isMeasured) {
        Measure();
    }
    return m_size;
}

bool CDVDImageText::IsEqual(const CDVDImageText& other) const {
    return CDVDImageSprite::IsEqual(other) && m_text == other.m_text && *m_style == *other.m_style;
}

bool CDVDImageText::IsNotEqual(const CDVDImageText& other) const {
    return !IsEqual(other);
}

void CDVDImageText::SetText(const QString& text) {
    m_text = xmlText(text);
    m_isMeasured = false;
}

void CDVDImageText::SetDisplayText(const QString& text) {
    if (text != m_displayText) {
        m_displayText = text;
        m_isMeasured = false;
    }
}

int CDVDImageText::Load(const CXMLParse& reader, const QString& nodePath) {
    const XmlNode element = reader.Select(nodePath);
    if (!element) {
        return 0;
    }
    QPoint position = GetPosition();
    element.GetIntAttribute("x0", position.rx());
    element.GetIntAttribute("y0", position.ry());
    SetPosition(position.x(), position.y());
    TextStyle style = *m_style;
    readStyle(element, style);
    m_style = sharedStyle(style);
    m_text = element.LeadingText();
    if (element.Child("text_effect") && m_text.endsWith(kBeforeEffect)) {
        m_text.chop(kBeforeEffect.size());
    }
    m_isMeasured = false;
    return 1;
}

int CDVDImageText::Save(int depth) const {
    const QPoint position = GetPosition();
    CLORXMLNodeWrite element(depth, u"text");
    element.AddAttribute(u"x0", position.x());
    element.AddAttribute(u"y0", position.y());
    addStyle(element, *m_style);
    if (!m_text.isEmpty()) {
        element.SetText(m_text);
        element.SetText(u"\n");
    }
    element.Flush();
    writeTextEffect(depth + 1, m_style->effect);
    return 1;
}

void CDVDImageText::SetStyle(const TextStyle& style) {
    TextStyle adapted = style;
    adapted.effect.font_size = style.size;
    adapted.effect.SetFontName(style.GetFont());
    if (isSameStyle(*m_style, style) || isSameStyle(*m_style, adapted)) {
        return;
    }
    MarkOwnerChanged();
    m_style = sharedStyle(adapted);
    m_isMeasured = false;
}

void CDVDImageText::Measure() const {
    m_layoutSize = CPhotoTextEffect::Measure(layoutFont(*m_style), GetShownText());
    const double scale = m_style->effect.font_size / kLayoutPoints;
    m_size = {truncated(m_layoutSize.width() * scale), truncated(m_layoutSize.height() * scale)};
    m_isMeasured = true;
}

QPoint CDVDImageText::GetTextOrigin() const {
    const QPoint position = GetPosition();
    if (m_style->shadow == 0) {
        return position;
    }
    return {truncated(static_cast<double>(position.x()) + m_style->shadow_x),
            truncated(static_cast<double>(position.y()) + m_style->shadow_y)};
}

Rect CDVDImageText::GetContainmentRect() const {
    const QPoint position = GetPosition();
    const QPoint origin = GetTextOrigin();
    const Rect rect = GetRect();
    return rect.translated(std::min(origin.x(), position.x()) - position.x(),
                           std::min(origin.y(), position.y()) - position.y());
}

const QString& CDVDImageText::GetShownText() const {
    return m_displayText.isEmpty() ? m_text : m_displayText;
}

int CDVDImageText::Draw(QPainter& painter, QPoint offset, int mode) {
    if (!m_isMeasured) {
        Measure();
    }
    const double canvasX = static_cast<double>(GetCanvasWidth()) / kStageWidth;
    const double canvasY = static_cast<double>(GetCanvasHeight()) / kStageHeight;
    const double scale = m_style->effect.font_size / kLayoutPoints;
    const QPointF corner((static_cast<double>(GetPosition().x()) + offset.x()) * canvasX,
                         (static_cast<double>(GetPosition().y()) + offset.y()) * canvasY);
    const QSizeF drawn(m_layoutSize.width() * scale * canvasX,
                       m_layoutSize.height() * scale * canvasY);
    painter.save();
    if (!drawn.isEmpty()) {
        const QRectF room(corner, drawn * kRoomForLayers);
        const QRectF canvas(-kFarAway, -kFarAway, 2 * kFarAway, 2 * kFarAway);
        painter.save();
        painter.setClipRect(room & canvas, Qt::IntersectClip);
        painter.translate(corner);
        painter.scale(scale * canvasX, scale * canvasY);
        CPhotoTextEffect::Draw(painter, TextureFolder(m_name), layoutFont(*m_style), {0.0, 0.0},
                               GetShownText(), m_style->effect, m_style->align);
        painter.restore();
    }
    if (mode == kDrawSelected || mode == kDrawSelectedToo) {
        drawSelectionMarks(painter, *this, QRectF(corner, drawn), offset);
    }
    painter.restore();
    return 1;
}

}  // namespace vellora
