#include "ui/dialog/VUDFrame.h"

#include <QChildEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <vellora/host/Language.h>

#include "base/ResourceIds.h"
#include "ui/controls/CoolButtonBar.h"
#include "ui/skin/Skin.h"

namespace vellora {
namespace {

constexpr QSize kSystemBar{66, 11};
constexpr int kSystemBarMargin = 8;
constexpr double kCornerRadius = 2.5;
constexpr int kCaptionPixels = 12;

}  // namespace

CVUDFrame::CVUDFrame(std::int32_t dialogId, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      m_sysBar(new CCoolButtonBar(QStringLiteral("SysBar"), this)),
      m_sysBar2(new CCoolButtonBar(QStringLiteral("SysBar2"), this)),
      m_dialogId(dialogId) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setPalette(skin::palette());
    const QString close = LanguageString(string_id::kCloseWindow);
    m_sysBar->AddButton(skin::Icon::Maximize, kSystemMaximize,
                        LanguageString(string_id::kMaximize));
    m_sysBar2->AddButton(skin::Icon::Restore, kSystemRestore, LanguageString(string_id::kRestore));
    for (CCoolButtonBar* bar : {m_sysBar, m_sysBar2}) {
        bar->AddButton(skin::Icon::Close, kSystemClose, close);
        bar->resize(kSystemBar);
        connect(bar, &CCoolButtonBar::Command, this, &CVUDFrame::SystemCommand);
    }
    m_sysBar2->hide();
}

void CVUDFrame::SetBkImage(const QImage* image) {
    m_background = image;
    update();
}

void CVUDFrame::SetFrameColor(COLORREF colour) {
    m_colour = colour;
    update();
}

QBrush CVUDFrame::GetFrameBrush() const {
    return QColor(redOf(m_colour), greenOf(m_colour), blueOf(m_colour));
}

void CVUDFrame::SetResizable(bool resizable) {
    m_resizable = resizable;
    m_sysBar->setVisible(resizable && !m_maximized);
}

QSize CVUDFrame::SmallestSize() const {
    return minimumSize().expandedTo(kMinimumFrame);
}

void CVUDFrame::SystemCommand(int command) {
    if (command == kSystemClose) {
        close();
        return;
    }
    const bool maximize = command == kSystemMaximize;
    if (!m_resizable || maximize == m_maximized) {
        return;
    }
    m_maximized = maximize;
    m_sysBar->setVisible(!maximize);
    m_sysBar2->setVisible(maximize);
    if (maximize) {
        m_restore = geometry();
        setGeometry(screen()->availableGeometry());
    } else {
        setGeometry(m_restore);
    }
    setCursor(Qt::ArrowCursor);
}

void CVUDFrame::PlaceSystemBars() {
    QRect bar({}, kSystemBar);
    bar.moveTopRight({width() - 1 - kSystemBarMargin, (kMoveZone + 2 - kSystemBar.height()) / 2});
    bar = QStyle::visualRect(layoutDirection(), rect(), bar);
    m_sysBar->setGeometry(bar);
    m_sysBar2->setGeometry(bar);
}

void CVUDFrame::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    PlaceSystemBars();
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()), kCornerRadius, kCornerRadius);
    setMask(QRegion(shape.toFillPolygon().toPolygon()));
}

void CVUDFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (m_background != nullptr && !m_background->isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), *m_background);
    } else {
        skin::drawWindow(painter, rect());
    }
    PaintCaption(painter);
    painter.setPen(skin::kBorder);
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius,
                            kCornerRadius);
}

void CVUDFrame::PaintCaption(QPainter& painter) const {
    QFont caption(QStringLiteral("Arial"));
    caption.setPixelSize(kCaptionPixels);
    caption.setWeight(QFont::DemiBold);
    painter.setFont(caption);
    painter.setPen(skin::kText);
    const QRect title(10, 1, width() - kSystemBar.width() - 30, kMoveZone);
    const auto alignment = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    skin::drawElided(painter, QStyle::visualRect(layoutDirection(), rect(), title),
                     static_cast<int>(alignment | Qt::AlignVCenter), windowTitle());
}

bool CVUDFrame::StartSystemDrag() {
    // Where windows cannot place themselves, the window system drags them.
    QWindow* window = windowHandle();
    if (window == nullptr || !QGuiApplication::platformName().startsWith(u"wayland")) {
        return false;
    }
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, (m_zone & kZoneLeft) != 0);
    edges.setFlag(Qt::RightEdge, (m_zone & kZoneRight) != 0);
    edges.setFlag(Qt::TopEdge, (m_zone & kZoneTop) != 0);
    edges.setFlag(Qt::BottomEdge, (m_zone & kZoneBottom) != 0);
    return edges != Qt::Edges() ? window->startSystemResize(edges) : window->startSystemMove();
}

void CVUDFrame::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || m_maximized) {
        return;
    }
    m_zone = frameZoneAt(event->position().toPoint(), size());
    const bool sizes = m_zone != kZoneMove && m_zone != kZoneNone && m_resizable;
    const bool moves = m_zone == kZoneMove && m_draggable;
    if ((sizes || moves) && !StartSystemDrag()) {
        m_dragging = true;
        m_mouseDown = event->globalPosition().toPoint();
        m_dragStart = geometry();
    }
}

void CVUDFrame::mouseMoveEvent(QMouseEvent* event) {
    if (m_dragging) {
        const QPoint by = event->globalPosition().toPoint() - m_mouseDown;
        setGeometry(draggedFrame(m_dragStart, m_zone, by, SmallestSize()));
        return;
    }
    const bool sizes = m_resizable && !m_maximized;
    setCursor(sizes ? cursorOfZone(frameZoneAt(event->position().toPoint(), size()))
                    : Qt::ArrowCursor);
}

void CVUDFrame::childEvent(QChildEvent* event) {
    QDialog::childEvent(event);
    if (event->added() && event->child()->isWidgetType()) {
        event->child()->installEventFilter(this);
    }
}

bool CVUDFrame::eventFilter(QObject* watched, QEvent* event) {
    // What stands in the frame would show the cursor of the edge that the mouse came over.
    if (event->type() == QEvent::Enter) {
        setCursor(Qt::ArrowCursor);
    }
    return QDialog::eventFilter(watched, event);
}

void CVUDFrame::mouseReleaseEvent(QMouseEvent* /*event*/) {
    m_dragging = false;
}

void CVUDFrame::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    const bool isInMoveZone =
        m_maximized ? point.y() < kMoveZone : frameZoneAt(point, size()) == kZoneMove;
    if (event->button() == Qt::LeftButton && isInMoveZone) {
        m_dragging = false;
        SystemCommand(m_maximized ? kSystemRestore : kSystemMaximize);
    }
}

}  // namespace vellora
