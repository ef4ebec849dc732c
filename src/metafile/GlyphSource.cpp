#include "metafile/GlyphSource.h"

#include <QGlyphRun>
#include <QGuiApplication>
#include <QRawFont>
#include <QTextLayout>
#include <algorithm>

#include "metafile/SymbolText.h"

namespace vellora::metafile {
namespace {

QFont::StyleHint hintOf(const FontObject& font) {
    switch (font.pitchAndFamily & 0xF0) {
        case 0x10:
            return QFont::Serif;
        case 0x30:
            return QFont::TypeWriter;
        case 0x40:
            return QFont::Cursive;
        case 0x50:
            return QFont::Decorative;
        default:
            return QFont::SansSerif;
    }
}

QFont designFont(const FontObject& font) {
    // The text of a font of signs comes as Unicode: what stands in for the font may lack that.
    const bool isOrdinary = !font.face.isEmpty() && !holdsSigns(font);
    QFont result(isOrdinary ? font.face : QStringLiteral("Arial"));
    result.setPixelSize(static_cast<int>(Face::kDesignSize));
    result.setWeight(
        static_cast<QFont::Weight>(font.weight <= 0 ? 400 : std::clamp(font.weight, 100, 900)));
    result.setItalic(font.italic);
    result.setStyleHint(hintOf(font), QFont::PreferOutline);
    result.setHintingPreference(QFont::PreferNoHinting);
    result.setKerning(false);
    return result;
}

void addGlyphs(QPainterPath& path, const QGlyphRun& run, double baseline) {
    const QRawFont font = run.rawFont();
    const QList<quint32> glyphs = run.glyphIndexes();
    const QList<QPointF> places = run.positions();
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
        if (glyphs[i] != 0)
            path.addPath(
                font.pathForGlyph(glyphs[i]).translated(places[i].x(), places[i].y() - baseline));
    }
}

}  // namespace

Face::Face(const FontObject& font) : m_font(designFont(font)) {
    const QRawFont raw = QRawFont::fromFont(m_font);
    m_ascent = raw.ascent();
    m_descent = raw.descent();
    m_averageWidth = std::max(raw.averageCharWidth(), 1.0);
    m_underline = raw.underlinePosition();
    m_thickness = std::max(raw.lineThickness(), kDesignSize / 40);
}

GlyphLine Face::line(const QString& text) const {
    QTextLayout layout(text, m_font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid())
        line.setLineWidth(1.0e7);
    layout.endLayout();
    GlyphLine result;
    if (!line.isValid())
        return result;
    result.width = line.horizontalAdvance();
    result.path.setFillRule(Qt::WindingFill);
    const double baseline = line.ascent();
    for (const QGlyphRun& run : layout.glyphRuns())
        addGlyphs(result.path, run, baseline);
    return result;
}

const GlyphLine& Face::letter(const QString& text) {
    auto found = m_letters.find(text);
    if (found == m_letters.end())
        found = m_letters.insert(text, line(text));
    return *found;
}

Face* GlyphSource::face(const FontObject& font) {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        return nullptr;
    const QString key = QStringLiteral("%1|%2|%3|%4")
                            .arg(font.face)
                            .arg(font.weight)
                            .arg(font.italic ? 1 : 0)
                            .arg(font.pitchAndFamily & 0xF0);
    std::shared_ptr<Face>& entry = m_faces[key];
    if (entry == nullptr && m_budget.spend(kFontWork))
        entry = std::make_shared<Face>(font);
    return entry.get();
}

}  // namespace vellora::metafile
