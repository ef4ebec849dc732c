#include "ui/controls/CoolTabBar.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/skin/Skin.h"

namespace vellora {
namespace {

constexpr int kGapWidth = 4;
constexpr double kTabRadius = 5.0;

QPainterPath tabShape(const QRectF& rect) {
    QPainterPath path(rect.bottomLeft());
    path.lineTo(rect.left(), rect.top() + kTabRadius);
    path.quadTo(rect.topLeft(), {rect.left() + kTabRadius, rect.top()});
    path.lineTo(rect.right() - kTabRadius, rect.top());
    path.quadTo(rect.topRight(), {rect.right(), rect.top() + kTabRadius});
    path.lineTo(rect.bottomRight());
    return path;
}

}  // namespace

CCoolTabBar::CCoolTabBar(const QString& windowName, QWidget* parent) : QTabBar(parent) {
    setObjectName(windowName);
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    connect(this, &QTabBar::currentChanged, this, &CCoolTabBar::CurrentItemChanged);
}

void CCoolTabBar::AddTab(const QString& text, const QString& tip) {
    const int item = addTab(QString(text).replace(u'&', QStringLiteral("&&")));
    setTabToolTip(item, QStringLiteral("<span>%1</span>").arg(tip.toHtmlEscaped()));
}

void CCoolTabBar::AddGap() {
    setTabEnabled(addTab({}), false);
}

QString CCoolTabBar::ShownText(int index) const {
    return tabText(index).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

bool CCoolTabBar::IsGap(int index) const {
    return index % 2 != 0;
}

QSize CCoolTabBar::tabSizeHint(int index) const {
    if (IsGap(index)) {
        return {kGapWidth, height()};
    }
    // What the gaps leave is shared in proportion to the texts, so that none is cut before it must.
    const QFontMetrics metrics(font());
    int total = 0;
    int before = 0;
    int free = width();
    for (int item = 0; item < count(); ++item) {
        const int needed = IsGap(item) ? 0 : metrics.horizontalAdvance(ShownText(item)) + 20;
        free -= IsGap(item) ? kGapWidth : 0;
        before += item < index ? needed : 0;
        total += needed;
    }
    const int own = metrics.horizontalAdvance(ShownText(index)) + 20;
    const auto share = [&](int part) {
        return static_cast<int>(static_cast<qint64>(std::max(free, 0)) * part / std::max(total, 1));
    };
    return {share(before + own) - share(before), height()};
}

QSize CCoolTabBar::minimumTabSizeHint(int index) const {
    return tabSizeHint(index);
}

void CCoolTabBar::resizeEvent(QResizeEvent* event) {
    QTabBar::resizeEvent(event);
    setIconSize(iconSize());  // lays the tabs out for the new width
}

void CCoolTabBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(0, height() - 1, width(), 1), skin::kLine);
    for (int item = 0; item < count(); ++item) {
        if (!IsGap(item)) {
            PaintTab(painter, item);
        }
    }
}

void CCoolTabBar::PaintTab(QPainter& painter, int index) const {
    const QRect tab = tabRect(index);
    const bool current = index == currentIndex();
    const bool hovered = tab.contains(mapFromGlobal(QCursor::pos())) && underMouse();
    QRectF shape = QRectF(tab).adjusted(0.5, current ? 0.5 : 2.5, -0.5, current ? 1.0 : -0.5);
    const QColor face = current ? skin::kPage : hovered ? skin::kHover : skin::kWindowBottom;
    painter.setPen(QPen(skin::kLine, 1.0));
    painter.setBrush(face);
    painter.drawPath(tabShape(shape));
    if (current) {
        painter.setPen(QPen(skin::kAccent, 2.0));
        painter.drawLine(QPointF(shape.left() + kTabRadius, shape.top() + 1.0),
                         QPointF(shape.right() - kTabRadius, shape.top() + 1.0));
    }
    painter.setFont(skin::scaledFont(*this, 1.0, current ? QFont::DemiBold : QFont::Normal));
    painter.setPen(current ? skin::kText : skin::kMutedText);
    skin::drawElided(painter, tab.adjusted(4, 2, -4, 0), Qt::AlignCenter, ShownText(index));
    if (current && hasFocus()) {
        skin::drawFocusRing(painter, tab.adjusted(3, 4, -3, -2));
    }
}

}  // namespace vellora
