#include "text/TextLayout.h"

#include <QFontMetricsF>
#include <QHash>
#include <QRawFont>
#include <QTextLayout>
#include <QTextOption>

#include "text/PathTools.h"

namespace vellora {
namespace {

constexpr qsizetype kMaxLength = 8192;
constexpr double kPaddingOfEm = 1.0 / 6.0;
constexpr double kTabStopInEms = 4.0;
constexpr double kEndlessLine = 10'000'000.0;

QStringList paragraphsOf(const QString& text) {
    QString lines = text.first(std::min(text.size(), kMaxLength));
    if (!lines.isEmpty() && lines.size() < text.size() && lines.back().isHighSurrogate()) {
        lines.chop(1);
    }
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(u'\r', u'\n');
    return lines.split(u'\n');
}

QTextOption optionFor(double em) {
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setUseDesignMetrics(true);
    option.setTabStopDistance(kTabStopInEms * em);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    return option;
}

/// The shapes of a font's glyphs, each looked up once. Their origin is (0, 0).
class GlyphShapes {
public:
    GlyphShapes(const QRawFont& font, double em) : m_font(font), m_em(em) {}

    bool mayTouch(const QRectF& area, quint32 glyph) {
        // Hardly any glyph reaches farther from its origin, marks and swashes included.
        const double usual = 2.5 * m_em;
        return area.adjusted(-usual, -usual, usual, usual).contains(QPointF()) ||
               area.intersects(Room(glyph));
    }

    const QPainterPath& outline(quint32 glyph) {
        auto found = m_outlines.find(glyph);
        if (found == m_outlines.end()) {
            found = m_outlines.insert(glyph, turnedClockwise(m_font.pathForGlyph(glyph)));
        }
        return *found;
    }

private:
    /// More than the glyph covers. A font that is slanted for want of an italic one tells the boxes
    /// of its upright glyphs.
    const QRectF& Room(quint32 glyph) {
        auto found = m_rooms.find(glyph);
        if (found == m_rooms.end()) {
            const QRectF box = m_font.boundingRect(glyph);
            const double lean = box.height() / 2;
            found = m_rooms.insert(glyph, box.adjusted(-m_em - lean, -m_em, m_em + lean, m_em));
        }
        return *found;
    }

    QRawFont m_font;
    double m_em;
    QHash<quint32, QPainterPath> m_outlines;
    QHash<quint32, QRectF> m_rooms;
};

}  // namespace

TextLayout::TextLayout(const QFont& font, const QString& text, std::int32_t align)
    : m_em(font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF()) {
    if (text.isEmpty()) {
        return;
    }
    for (const QString& paragraph : paragraphsOf(text)) {
        AddParagraph(font, paragraph);
    }
    AlignLines(align);
    m_size.rwidth() += 2 * kPaddingOfEm * m_em;
}

void TextLayout::AddParagraph(const QFont& font, const QString& text) {
    QTextLayout layout(text, font);
    layout.setTextOption(optionFor(m_em));
    layout.beginLayout();
    while (true) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLeadingIncluded(true);
        line.setLineWidth(kEndlessLine);
        line.setPosition({0.0, 0.0});
        const double width = line.naturalTextWidth();
        const QPointF offset(kPaddingOfEm * m_em, m_size.height());
        const bool rightToLeft =
            layout.textOption().textDirection() == Qt::RightToLeft || text.isRightToLeft();
        m_lines.push_back({width, rightToLeft, m_runs.size(), m_rules.size()});
        for (const QGlyphRun& glyphs : line.glyphRuns()) {
            m_runs.push_back({offset, glyphs});
        }
        if (font.underline()) {
            const QFontMetricsF metrics(font);
            const double y = line.ascent() + metrics.underlinePos() - metrics.lineWidth() / 2;
            m_rules.push_back(QRectF(0.0, y, width, metrics.lineWidth()).translated(offset));
        }
        m_size.rwidth() = std::max(m_size.width(), width);
        m_size.rheight() += line.height();
    }
    layout.endLayout();
}

void TextLayout::AlignLines(std::int32_t align) {
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const Line& line = m_lines[i];
        const bool last = i + 1 == m_lines.size();
        double shift = 0.0;
        if (align == kAlignCentre) {
            shift = (m_size.width() - line.width) / 2;
        } else if ((align == kAlignTrailing) != line.rightToLeft) {
            shift = m_size.width() - line.width;
        }
        const std::size_t endRun = last ? m_runs.size() : m_lines[i + 1].firstRun;
        for (std::size_t run = line.firstRun; run < endRun; ++run) {
            m_runs[run].offset.rx() += shift;
        }
        const std::size_t endRule = last ? m_rules.size() : m_lines[i + 1].firstRule;
        for (std::size_t rule = line.firstRule; rule < endRule; ++rule) {
            m_rules[rule].translate(shift, 0.0);
        }
    }
}

QPainterPath TextLayout::outline(const QRectF& area) const {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const Run& run : m_runs) {
        GlyphShapes shapes(run.glyphs.rawFont(), m_em);
        const QList<quint32> indexes = run.glyphs.glyphIndexes();
        const QList<QPointF> positions = run.glyphs.positions();
        for (qsizetype i = 0; i < indexes.size(); ++i) {
            const QPointF position = positions[i] + run.offset;
            if (shapes.mayTouch(area.translated(-position), indexes[i])) {
                path.addPath(shapes.outline(indexes[i]).translated(position));
            }
        }
    }
    for (const QRectF& rule : m_rules) {
        path.addRect(rule);  // clockwise
    }
    return path;
}

}  // namespace vellora
