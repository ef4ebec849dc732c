#include <algorithm>
#include <cmath>

#include "metafile/Canvas.h"
#include "metafile/SymbolText.h"

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kUpdatesPosition = 1;
constexpr std::uint32_t kHorizontalMask = 6;
constexpr std::uint32_t kRight = 2;
constexpr std::uint32_t kCentre = 6;
constexpr std::uint32_t kVerticalMask = 24;
constexpr std::uint32_t kBottom = 8;
constexpr std::uint32_t kBaseline = 24;
constexpr double kDefaultPixels = 16;

/// Scripts whose letters join or change places and so are never laid out one by one.
bool joinsLetters(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return (c.unicode() >= 0x0300 && c.unicode() <= 0x036F) ||
               (c.unicode() >= 0x0590 && c.unicode() <= 0x10FF);
    });
}

QString printable(const FontObject& font, const QString& text) {
    QString result = symbolsToUnicode(font, text.left(kMaxTextLength));
    std::replace_if(
        result.begin(), result.end(), [](QChar c) { return c.unicode() < 0x20; }, QChar(u' '));
    return result;
}

/// From units of the face to logical units.
struct Scale {
    double across = 1;
    double down = 1;

    Scale(const FontObject& font, const Face& face, double defaultHeight) {
        const double cell = face.ascent() + face.descent();
        if (font.height > 0)
            down = font.height / std::max(cell, 1.0);
        else
            down = (font.height < 0 ? -font.height : defaultHeight) / Face::kDesignSize;
        across = down;
        if (font.width != 0)
            across = std::abs(font.width) / face.averageWidth();
    }
};

QTransform scaling(const Scale& scale) {
    return QTransform::fromScale(scale.across, scale.down);
}

/// Letters at the distances that the record gives.
GlyphLine spacedLine(Face& face, const QString& text, const std::vector<double>& advances,
                     const Scale& scale) {
    GlyphLine result;
    result.path.setFillRule(Qt::WindingFill);
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype units =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate() ? 2
                                                                                             : 1;
        const QPainterPath letter = scaling(scale).map(face.letter(text.mid(i, units)).path);
        result.path.addPath(letter.translated(result.width, 0));
        for (const qsizetype end = i + units; i < end; ++i)
            result.width += advances[static_cast<std::size_t>(i)];
    }
    return result;
}

/// Letters at the distances of the font, with what the state adds.
GlyphLine naturalLine(Face& face, const QString& text, const DrawState& state, const Scale& scale) {
    if ((state.charExtra == 0 && state.breakExtra == 0) || joinsLetters(text)) {
        GlyphLine line = face.line(text);
        return {scaling(scale).map(line.path), line.width * scale.across};
    }
    std::vector<double> advances;
    for (const QChar c : text) {
        double advance = c.isLowSurrogate() ? 0 : face.letter(c).width * scale.across;
        advance += state.charExtra + (c == u' ' ? state.breakExtra : 0);
        advances.push_back(advance);
    }
    return spacedLine(face, text, advances, scale);
}

double baselineShift(std::uint32_t align, const Face& face, const Scale& scale) {
    switch (align & kVerticalMask) {
        case kBaseline:
            return 0;
        case kBottom:
            return -face.descent() * scale.down;
        default:
            return face.ascent() * scale.down;
    }
}

double startShift(std::uint32_t align, double width) {
    switch (align & kHorizontalMask) {
        case kRight:
            return -width;
        case kCentre:
            return -width / 2;
        default:
            return 0;
    }
}

void addDecoration(QPainterPath& path, const FontObject& font, const Face& face, double width,
                   const Scale& scale) {
    const double thickness = face.lineThickness() * scale.down;
    if (font.underline)
        path.addRect(0, face.underlineTop() * scale.down, width, thickness);
    if (font.strikeOut)
        path.addRect(0, face.strikeTop() * scale.down, width, thickness);
}

}  // namespace

/// From a baseline at the origin, y downwards, to device units. Letters stand upright whichever
/// way the axes of the page point.
QTransform Canvas::textToDevice(QPointF at) const {
    const QPointF page = m_state.page.scale();
    QTransform place;
    place.rotate(-m_state.font.escapement / 10);
    place *= QTransform::fromScale(page.x() < 0 ? -1 : 1, page.y() < 0 ? -1 : 1);
    return place * QTransform::fromTranslate(at.x(), at.y()) * toDevice();
}

void Canvas::textBack(const TextRun& run, const QTransform& place, const QRectF& cell) {
    if (m_openPath)
        return;
    const QColor color = colorOf(m_state.backColor);
    if (run.fillsBox)
        m_list.fill(mapped(rectanglePath(run.box.normalized())), color, activeClip());
    if (m_state.opaqueBack && !cell.isEmpty())
        m_list.fill(place.map(rectanglePath(cell)), color, activeClip());
}

void Canvas::text(const TextRun& run) {
    const QString letters = printable(m_state.font, run.text);
    if (!m_budget.spend(kGlyphWork * static_cast<double>(letters.size())))
        return;
    Face* const face = letters.isEmpty() ? nullptr : m_glyphs.face(m_state.font);
    if (face == nullptr) {
        textBack(run, {}, {});
        return;
    }
    const double pageScale = std::max(std::abs(m_state.page.scale().y()), 1.0e-9);
    const Scale scale(m_state.font, *face, kDefaultPixels * m_pixel / pageScale);
    const bool spaced =
        run.advances.size() >= static_cast<std::size_t>(letters.size()) && !joinsLetters(letters);
    GlyphLine line = spaced ? spacedLine(*face, letters, run.advances, scale)
                            : naturalLine(*face, letters, m_state, scale);
    addDecoration(line.path, m_state.font, *face, line.width, scale);

    const std::uint32_t align = m_state.textAlign;
    const bool moves = (align & kUpdatesPosition) != 0;
    const QTransform rotated = textToDevice(moves ? m_state.position : run.at);
    const QTransform place = QTransform::fromTranslate(startShift(align, line.width),
                                                       baselineShift(align, *face, scale)) *
                             rotated;
    const QRectF cell(0, -face->ascent() * scale.down, line.width,
                      (face->ascent() + face->descent()) * scale.down);
    const ClipChain before = m_state.clip;
    if (run.clipsToBox)
        clipTo(run.box, ClipMode::And);
    textBack(run, place, cell);
    QPainterPath outline = place.map(line.path);
    const QRectF extent = outline.controlPointRect();
    const bool drawable =
        std::max({std::abs(extent.left()), std::abs(extent.right()), std::abs(extent.top()),
                  std::abs(extent.bottom())}) <= kMaxCoordinate;
    if (drawable && !outline.isEmpty()) {
        if (m_openPath)
            shape(outline, true, false);
        else
            m_list.fill(outline, colorOf(m_state.textColor), activeClip());
    }
    m_state.clip = before;
    if (moves) {
        const double step = (align & kHorizontalMask) == kRight    ? -line.width
                            : (align & kHorizontalMask) == kCentre ? 0
                                                                   : line.width;
        bool invertible = false;
        const QTransform toLogical = toDevice().inverted(&invertible);
        if (invertible)
            m_state.position = (rotated * toLogical).map(QPointF(step, 0));
    }
}

}  // namespace vellora::metafile
