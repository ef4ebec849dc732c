#include "model/SvgWork.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <limits>

#include "metafile/Limits.h"
#include "metafile/PathWork.h"

namespace vellora {
namespace {

using namespace metafile;

// Pixels that cost more than those of a plain colour, by so much.
constexpr double kGradientCost = 4;
constexpr double kImageCost = 32;
constexpr double kBlendingCost = 24;
/// Points of a dash's outline.
constexpr double kDashPoints = 8;

/// Points of a rounded rectangle and a little more.
constexpr int kSimplePath = 32;
constexpr double kCutWork = 1'000;

/// The factor by which a transform enlarges most.
double enlargement(const QTransform& transform) {
    return std::max(std::hypot(transform.m11(), transform.m12()),
                    std::hypot(transform.m21(), transform.m22()));
}

/// Counts what it is told to paint.
class WorkEngine final : public QPaintEngine {
public:
    explicit WorkEngine(QSizeF picture) : QPaintEngine(AllFeatures), m_picture(picture) {}

    [[nodiscard]] const WorkBudget& budget() const { return m_budget; }
    [[nodiscard]] QRectF reach() const { return m_reach; }

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    [[nodiscard]] Type type() const override { return User; }

    void drawPath(const QPainterPath& path) override {
        if (m_budget.isExhausted()) {
            return;
        }
        const QPainterPath onPicture = state->transform().map(path);
        m_budget.spend(kItemWork);
        if (state->brush().style() != Qt::NoBrush) {
            spendFill(onPicture);
        }
        const QPen pen = state->pen();
        if (pen.style() != Qt::NoPen && pen.brush().style() != Qt::NoBrush) {
            spendStroke(path, onPicture);
        }
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode != PolylineMode) {
            path.closeSubpath();
        }
        drawPath(path);
    }

    void drawPixmap(const QRectF& target, const QPixmap& /*pixmap*/,
                    const QRectF& source) override {
        spendImage(target, source);
    }

    void drawImage(const QRectF& target, const QImage& /*image*/, const QRectF& source,
                   Qt::ImageConversionFlags /*flags*/) override {
        spendImage(target, source);
    }

    void drawTextItem(const QPointF& at, const QTextItem& text) override {
        if (!m_budget.isExhausted()) {
            QPaintEngine::drawTextItem(at, text);  // as the outlines of its letters
        }
    }

private:
    void spendArea(const QRectF& bounds, double cost) {
        const QRectF shown = bounds & QRectF(QPointF(), m_picture);
        const double share =
            shown.width() * shown.height() / (m_picture.width() * m_picture.height());
        const bool blends = state->compositionMode() != QPainter::CompositionMode_SourceOver;
        m_budget.spend(kFrameFillWork * share * (blends ? std::max(cost, kBlendingCost) : cost));
    }

    /// Paths far outside are cut before they are drawn, which simple ones bear.
    void spendCut(const QRectF& bounds, int points) {
        if (points > kSimplePath) {
            m_reach |= bounds;
        } else if (isFar(bounds)) {
            m_budget.spend(kCutWork);
        }
    }

    static double costOf(const QBrush& brush) {
        return brush.style() == Qt::SolidPattern ? 1 : kGradientCost;
    }

    void spendFill(const QPainterPath& path) {
        spendCut(path.controlPointRect(), path.elementCount());
        spendArea(path.controlPointRect(), costOf(state->brush()));
        m_budget.spend(path.elementCount() + edgeWork(path));
    }

    void spendStroke(const QPainterPath& path, const QPainterPath& onPicture) {
        const QPen pen = state->pen();
        const double scale = pen.isCosmetic() ? 1 : enlargement(state->transform());
        const double width = std::max(pen.widthF() * scale, 1.0);
        const double reach = width * std::max(pen.miterLimit(), 1.0);
        const QRectF bounds = onPicture.controlPointRect().adjusted(-reach, -reach, reach, reach);
        spendCut(bounds, onPicture.elementCount());
        spendArea(bounds, costOf(pen.brush()));
        m_budget.spend((1 + kStrokeWork) * onPicture.elementCount() + edgeWork(onPicture, 2));
        const QList<qreal> pattern = pen.dashPattern();
        double dashes = 0;
        for (const qreal length : pattern) {
            dashes += length;
        }
        if (dashes > 0) {
            const double length = pen.isCosmetic() ? onPicture.length() : path.length();
            const double repeats = length / (dashes * std::max(pen.widthF(), 1.0e-9));
            m_budget.spend(repeats * static_cast<double>(pattern.size()) / 2 *
                           (kStrokeWork + kDashPoints));
        }
    }

    void spendImage(const QRectF& target, const QRectF& source) {
        m_budget.spend(kItemWork + source.width() * source.height() / (64.0 * 1024));
        spendArea(state->transform().mapRect(target), kImageCost);
    }

    QSizeF m_picture;
    QRectF m_reach;
    WorkBudget m_budget;
};

class WorkDevice final : public QPaintDevice {
public:
    explicit WorkDevice(QSize size) : m_size(size), m_engine(size) {}

    [[nodiscard]] QPaintEngine* paintEngine() const override { return &m_engine; }
    [[nodiscard]] const WorkEngine& counted() const { return m_engine; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        constexpr int kDotsPerInch = 96;
        switch (metric) {
            case PdmWidth:
                return m_size.width();
            case PdmHeight:
                return m_size.height();
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return kDotsPerInch;
            case PdmNumColors:
                return std::numeric_limits<int>::max();
            case PdmDepth:
                return 32;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            default:
                return 0;
        }
    }

private:
    QSize m_size;
    mutable WorkEngine m_engine;
};

}  // namespace

bool isFar(const QRectF& bounds) {
    constexpr double kFarthestPixel = 32'000;  // the rasteriser counts to 32,767
    return !(std::min(bounds.left(), bounds.top()) >= -kFarthestPixel &&
             std::max(bounds.right(), bounds.bottom()) <= kFarthestPixel);
}

std::optional<SvgCost> costOfDrawing(QSvgRenderer& renderer, const QSizeF& size) {
    const QSizeF fitted = size.scaled(kWorkSide, kWorkSide, Qt::KeepAspectRatio);
    const QSize picture = fitted.toSize().expandedTo({1, 1});
    WorkDevice device(picture);
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(), picture));
    painter.end();
    const WorkBudget& budget = device.counted().budget();
    if (budget.isExhausted()) {
        return std::nullopt;
    }
    const auto onePicture = QTransform::fromScale(1.0 / picture.width(), 1.0 / picture.height());
    return SvgCost{budget.spent(), onePicture.mapRect(device.counted().reach())};
}

}  // namespace vellora
