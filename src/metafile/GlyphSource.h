#pragma once

#include <QFont>
#include <QHash>
#include <QPainterPath>
#include <QString>
#include <memory>
#include <unordered_map>

#include "metafile/GraphicsObjects.h"
#include "metafile/Limits.h"

namespace vellora::metafile {

/// Letters laid out on a baseline that runs right from the origin, y downwards.
struct GlyphLine {
    QPainterPath path;
    double width = 0;
};

/// A font as outlines, `kDesignSize` units to the em. Characters that no installed font holds
/// have no outline, so that no boxes appear.
class Face {
public:
    static constexpr double kDesignSize = 128;

    explicit Face(const FontObject& font);

    GlyphLine line(const QString& text) const;
    /// Lines of one letter, remembered.
    const GlyphLine& letter(const QString& text);

    double ascent() const { return m_ascent; }
    double descent() const { return m_descent; }
    double averageWidth() const { return m_averageWidth; }
    double underlineTop() const { return m_underline; }
    double strikeTop() const { return -m_ascent * 0.32; }
    double lineThickness() const { return m_thickness; }

private:
    QFont m_font;
    double m_ascent = 0;
    double m_descent = 0;
    double m_averageWidth = 0;
    double m_underline = 0;
    double m_thickness = 0;
    QHash<QString, GlyphLine> m_letters;
};

/// The faces of one file.
class GlyphSource {
public:
    explicit GlyphSource(WorkBudget& budget) : m_budget(budget) {}

    /// Null without a font system, and once the budget is used up.
    Face* face(const FontObject& font);

private:
    WorkBudget& m_budget;
    QHash<QString, std::shared_ptr<Face>> m_faces;
};

}  // namespace vellora::metafile
