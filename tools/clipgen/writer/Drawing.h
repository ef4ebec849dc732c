#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <optional>
#include <variant>
#include <vector>

namespace vellora::clipgen {

struct Line {
    enum class Dashes { None, Dash, Dot };

    QColor color = Qt::black;
    double width = 1;
    Dashes dashes = Dashes::None;

    bool operator==(const Line&) const = default;
};

/// A path filled, outlined, or both.
struct Shape {
    QPainterPath path;
    std::optional<QColor> fill;
    std::optional<Line> line;
};

struct Text {
    QString text;
    /// The left end of the baseline, or its middle.
    QPointF at;
    bool centred = false;
    QString face = QStringLiteral("Arial");
    /// Of the letters, without the space between lines.
    double size = 16;
    bool bold = false;
    bool italic = false;
    /// Degrees counter-clockwise.
    double angle = 0;
    QColor color = Qt::black;
};

struct Picture {
    QImage image;
    QRectF place;
};

/// One drawing, in units of its own with y downwards. What is drawn later lies on top.
class Drawing {
public:
    using Item = std::variant<Shape, Text, Picture>;

    explicit Drawing(QSizeF size) : m_size(size) {}

    QSizeF size() const { return m_size; }
    const std::vector<Item>& items() const { return m_items; }

    void fill(const QPainterPath& path, QColor color) { add(Shape{path, color, {}}); }
    void outline(const QPainterPath& path, Line line) { add(Shape{path, {}, line}); }
    void paint(const QPainterPath& path, QColor color, Line line) { add(Shape{path, color, line}); }
    void text(const Text& text) { add(text); }
    void picture(const QImage& image, const QRectF& place) { add(Picture{image, place}); }

    /// A gradient from one point to another in bands; metafiles know no gradients that every
    /// program draws. Each band covers all that follows, so that no seams show.
    void bands(const QPainterPath& path, QPointF from, QPointF to,
               const std::vector<QColor>& colors, int coarse = 16);
    /// The same outwards from a centre: rings of the path's own shape, drawn smaller and smaller.
    void rings(const QPainterPath& path, QPointF centre, const std::vector<QColor>& colors,
               int coarse = 12);

private:
    void add(Item item) { m_items.push_back(std::move(item)); }

    QSizeF m_size;
    std::vector<Item> m_items;
};

/// The colour at a place from 0 to 1 along a row of colours.
QColor mixed(const std::vector<QColor>& colors, double at);

}  // namespace vellora::clipgen
