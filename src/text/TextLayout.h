#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QPainterPath>
#include <QString>
#include <vector>

#include <vellora/text/PhotoTextEffect.h>

namespace vellora {

/// A text laid out once, for measuring and for drawing.
class TextLayout {
public:
    TextLayout(const QFont& font, const QString& text, std::int32_t align = kAlignLeading);

    [[nodiscard]] QSizeF size() const { return m_size; }

    /// The outlines, to be filled by the winding rule, of the glyphs that may touch `area`.
    [[nodiscard]] QPainterPath outline(const QRectF& area) const;

private:
    struct Run {
        QPointF offset;
        QGlyphRun glyphs;
    };

    void AddParagraph(const QFont& font, const QString& text);
    void AlignLines(std::int32_t align);

    struct Line {
        double width;
        bool rightToLeft;
        std::size_t firstRun;
        std::size_t firstRule;
    };

    double m_em;
    QSizeF m_size;
    std::vector<Line> m_lines;
    std::vector<Run> m_runs;
    std::vector<QRectF> m_rules;  // underlines
};

}  // namespace vellora
