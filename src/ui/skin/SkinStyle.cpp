#include "ui/skin/SkinStyle.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

#include "ui/skin/Skin.h"

namespace vellora::skin {
namespace {

constexpr char kPrimaryProperty[] = "velloraPrimary";
constexpr int kIndicator = 16;
constexpr int kScrollBar = 11;
constexpr int kSliderHandle = 16;
constexpr int kFrame = 2;
constexpr int kButtonPadding = 5;

bool has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

QColor borderOf(const QStyleOption& option) {
    if (!has(option, QStyle::State_Enabled)) {
        return kFaintBorder;
    }
    return has(option, QStyle::State_MouseOver) || has(option, QStyle::State_HasFocus) ? kAccent
                                                                                       : kBorder;
}

QColor faceOf(const QStyleOption& option) {
    if (!has(option, QStyle::State_Enabled)) {
        return kWindowTop;
    }
    if (has(option, QStyle::State_Sunken) || has(option, QStyle::State_On)) {
        return kPressed;
    }
    return has(option, QStyle::State_MouseOver) ? kHover : kPage;
}

bool isPrimary(const QWidget* widget) {
    return widget != nullptr && widget->property(kPrimaryProperty).toBool();
}

void drawButtonFace(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
    QColor face = faceOf(option);
    QColor border = has(option, QStyle::State_On) ? kAccent : borderOf(option);
    if (isPrimary(widget) && has(option, QStyle::State_Enabled)) {
        const bool lit = has(option, QStyle::State_Sunken) || has(option, QStyle::State_MouseOver);
        face = lit ? kAccentDark : kAccent;
        border = face;
    }
    drawFace(painter, option.rect, face, border);
    if (has(option, QStyle::State_HasFocus)) {
        const QRect ring = isPrimary(widget) ? option.rect.adjusted(2, 2, -2, -2) : option.rect;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(isPrimary(widget) ? kAccentText : kAccent, isPrimary(widget) ? 1 : 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(ring).adjusted(1, 1, -1, -1), kRadius - 1, kRadius - 1);
        painter.restore();
    }
}

/// Icon and text together in the middle; a text that is too long is cut.
void drawButtonLabel(QPainter& painter, const QStyleOptionButton& button, const QWidget* widget) {
    const bool enabled = has(button, QStyle::State_Enabled);
    const bool primary = isPrimary(widget) && enabled;
    const int icon = button.icon.isNull() ? 0 : button.iconSize.width();
    const int gap = icon > 0 && !button.text.isEmpty() ? 7 : 0;
    const QRect room = button.rect.adjusted(kButtonPadding, 0, -kButtonPadding, 0);
    const QString text = button.fontMetrics.elidedText(
        button.text, Qt::ElideRight, room.width() - icon - gap, Qt::TextShowMnemonic);
    const int width = button.fontMetrics.size(Qt::TextShowMnemonic, text).width();
    QRect label(0, room.top(), icon + gap + width, room.height());
    label.moveLeft(room.left() + (room.width() - label.width()) / 2);
    const auto placed = [&](int left, int size) {
        return QStyle::visualRect(button.direction, label,
                                  {label.left() + left, label.top(), size, label.height()});
    };
    button.icon.paint(&painter, placed(0, icon), Qt::AlignCenter,
                      primary   ? QIcon::Selected
                      : enabled ? QIcon::Normal
                                : QIcon::Disabled);
    painter.setPen(primary   ? kAccentText
                   : enabled ? button.palette.color(QPalette::ButtonText)
                             : kDisabledText);
    painter.drawText(placed(icon + gap, width), Qt::AlignCenter | Qt::TextShowMnemonic, text);
}

void drawField(QPainter& painter, const QStyleOption& option) {
    const bool enabled = has(option, QStyle::State_Enabled);
    drawFace(painter, option.rect, enabled ? kPage : kWindowTop, borderOf(option));
    if (enabled && has(option, QStyle::State_HasFocus)) {
        drawFocusRing(painter, option.rect);
    }
}

void drawIndicator(QPainter& painter, const QStyleOption& option, bool round) {
    const bool on = has(option, QStyle::State_On);
    const bool enabled = has(option, QStyle::State_Enabled);
    const QColor ink = enabled ? kAccent : kDisabledText;
    const double radius = round ? option.rect.width() / 2.0 : 3.0;
    drawFace(painter, option.rect, on ? ink : faceOf(option), on ? ink : borderOf(option), radius);
    if (!on) {
        return;
    }
    const QRectF box(option.rect);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (round) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(kAccentText);
        painter.drawEllipse(box.center(), box.width() * 0.19, box.width() * 0.19);
    } else {
        painter.setPen(QPen(kAccentText, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const auto at = [&box](double x, double y) {
            return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
        };
        painter.drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.70), at(0.76, 0.30)});
    }
    painter.restore();
}

void drawArrow(QPainter& painter, const QRectF& rect, bool up, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF centre = rect.center();
    const double rise = up ? -2.0 : 2.0;
    painter.drawPolyline(QPolygonF{{centre.x() - 3.6, centre.y() - rise},
                                   {centre.x(), centre.y() + rise},
                                   {centre.x() + 3.6, centre.y() - rise}});
    painter.restore();
}

QColor arrowColour(const QStyleOption& option) {
    return has(option, QStyle::State_Enabled) ? kMutedText : kDisabledText;
}

}  // namespace

SkinStyle::SkinStyle(QObject* parent) : QProxyStyle(QStringLiteral("Fusion")) {
    setParent(parent);
}

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    switch (element) {
        case PE_PanelButtonCommand:
            return drawButtonFace(*painter, *option, widget);
        case PE_IndicatorRadioButton:
            return drawIndicator(*painter, *option, true);
        case PE_IndicatorCheckBox:
            return drawIndicator(*painter, *option, false);
        case PE_PanelLineEdit:
            if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
                frame != nullptr && frame->lineWidth > 0) {
                drawField(*painter, *option);
            }
            return;
        case PE_Frame:
            return drawFace(*painter, option->rect, Qt::NoBrush, borderOf(*option));
        case PE_FrameFocusRect:
            if (has(*option, State_KeyboardFocusChange) || has(*option, State_HasFocus)) {
                drawFocusRing(*painter, option->rect);
            }
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void SkinStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_RadioButtonLabel || element == CE_CheckBoxLabel) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            QStyleOptionButton label(*button);
            label.text = label.fontMetrics.elidedText(label.text, Qt::ElideRight,
                                                      label.rect.width(), Qt::TextShowMnemonic);
            return QProxyStyle::drawControl(element, &label, painter, widget);
        }
    }
    if (element == CE_PushButtonLabel) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            return drawButtonLabel(*painter, *button, widget);
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

int SkinStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return kIndicator;
        case PM_ScrollBarExtent:
            return kScrollBar;
        case PM_SliderThickness:
            return kSliderHandle + 2;
        case PM_SliderControlThickness:
        case PM_SliderLength:
            return kSliderHandle;
        case PM_DefaultFrameWidth:
            return kFrame;
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize SkinStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const int needed = contents.width() + 2 * (kFrame + kButtonPadding);
    return type == CT_PushButton ? size.expandedTo({needed, 0}) : size;
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    if (hint == SH_Slider_AbsoluteSetButtons) {
        return Qt::LeftButton;
    }
    if (hint == SH_ComboBox_Popup) {
        return 0;
    }
    return QProxyStyle::styleHint(hint, option, widget, data);
}

namespace {

/// A heading over the whole width, and what is below it.
QRect groupBoxPart(const QStyleOption& box, QStyle::SubControl part) {
    const int heading = box.fontMetrics.height() + 4;
    const QRect& rect = box.rect;
    if (part == QStyle::SC_GroupBoxLabel) {
        return {rect.left(), rect.top(), rect.width(), heading};
    }
    if (part == QStyle::SC_GroupBoxContents || part == QStyle::SC_GroupBoxFrame) {
        return rect.adjusted(0, heading, 0, 0);
    }
    return {};
}

QRect sliderPart(const QStyleOptionSlider& slider, QStyle::SubControl part) {
    if (part == QStyle::SC_SliderGroove) {
        return slider.rect;
    }
    if (part != QStyle::SC_SliderHandle) {
        return {};
    }
    const QRect& rect = slider.rect;
    const int start =
        QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, slider.sliderPosition,
                                        rect.width() - kSliderHandle, slider.upsideDown);
    return {rect.left() + start, rect.top() + (rect.height() - kSliderHandle) / 2, kSliderHandle,
            kSliderHandle};
}

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    if (part == QStyle::SC_ScrollBarGroove) {
        return bar.rect;
    }
    const bool across = bar.orientation == Qt::Horizontal;
    const int length = across ? bar.rect.width() : bar.rect.height();
    const qint64 range = static_cast<qint64>(bar.maximum) - bar.minimum;
    const qint64 total = std::max<qint64>(range + bar.pageStep, 1);
    const int handle =
        std::clamp(static_cast<int>(static_cast<qint64>(length) * bar.pageStep / total),
                   std::min(24, length), length);
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      length - handle, bar.upsideDown);
    const auto span = [&](int from, int size) {
        return across ? QRect(from, 0, size, bar.rect.height())
                      : QRect(0, from, bar.rect.width(), size);
    };
    switch (part) {
        case QStyle::SC_ScrollBarSlider:
            return span(start, handle);
        case QStyle::SC_ScrollBarSubPage:
            return span(0, start);
        case QStyle::SC_ScrollBarAddPage:
            return span(start + handle, length - start - handle);
        default:
            return {};  // there are no arrow buttons
    }
}

void drawSlider(QPainter& painter, const QStyleOptionSlider& slider, const QRect& groove,
                const QRect& handle) {
    const bool enabled = has(slider, QStyle::State_Enabled);
    const QRect track(groove.left(), groove.center().y() - 1, groove.width(), 4);
    drawFace(painter, track, kFaintBorder, {}, 2.0);
    QRect filled = track;
    // The filled part runs from where the slider's value 0 lies, or from its start.
    const int zero = std::clamp(0, slider.minimum, slider.maximum);
    const int origin =
        QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, zero,
                                        groove.width() - handle.width(), slider.upsideDown) +
        groove.left() + handle.width() / 2;
    filled.setLeft(std::min(origin, handle.center().x()));
    filled.setRight(std::max(origin, handle.center().x()));
    drawFace(painter, filled, enabled ? kAccent : kDisabledText, {}, 2.0);
    const QColor border = enabled ? kAccent : kDisabledText;
    const bool sunken = has(slider, QStyle::State_Sunken);
    drawFace(painter, handle, sunken ? kPressed : kPage, border, handle.width() / 2.0);
    if (has(slider, QStyle::State_HasFocus)) {
        drawFocusRing(painter, handle, handle.width() / 2.0);
    }
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar, const QRect& handle) {
    painter.fillRect(bar.rect, kPage);
    if (bar.maximum <= bar.minimum) {
        return;
    }
    const bool lit = has(bar, QStyle::State_MouseOver) || has(bar, QStyle::State_Sunken);
    drawFace(painter, handle.adjusted(2, 2, -2, -2), lit ? kMutedText : kBorder, {}, 3.5);
}

}  // namespace

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    const auto part = [&](SubControl sub) { return subControlRect(control, option, sub, widget); };
    if (control == CC_Slider) {
        const auto& slider = *static_cast<const QStyleOptionSlider*>(option);
        return drawSlider(*painter, slider, part(SC_SliderGroove), part(SC_SliderHandle));
    }
    if (control == CC_ScrollBar) {
        const auto& bar = *static_cast<const QStyleOptionSlider*>(option);
        return drawScrollBar(*painter, bar, part(SC_ScrollBarSlider));
    }
    if (control == CC_ComboBox) {
        drawField(*painter, *option);
        return drawArrow(*painter, part(SC_ComboBoxArrow), false, arrowColour(*option));
    }
    if (control == CC_SpinBox) {
        drawField(*painter, *option);
        drawArrow(*painter, part(SC_SpinBoxUp), true, arrowColour(*option));
        return drawArrow(*painter, part(SC_SpinBoxDown), false, arrowColour(*option));
    }
    if (control == CC_GroupBox) {
        const auto& box = *static_cast<const QStyleOptionGroupBox*>(option);
        painter->setFont(scaledFont(*widget, 1.0, QFont::DemiBold));
        const QRect label = part(SC_GroupBoxLabel);
        painter->setPen(box.palette.color(QPalette::WindowText));
        painter->drawText(
            QRect(box.rect.left(), label.top(), box.rect.width(), label.height()),
            static_cast<int>(visualAlignment(box.direction, Qt::AlignLeft) | Qt::AlignVCenter),
            box.fontMetrics.elidedText(box.text, Qt::ElideRight, box.rect.width() * 9 / 10));
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl subControl, const QWidget* widget) const {
    if (control == CC_GroupBox) {
        return groupBoxPart(*option, subControl);
    }
    if (control == CC_Slider) {
        return sliderPart(*static_cast<const QStyleOptionSlider*>(option), subControl);
    }
    if (control == CC_ScrollBar) {
        return scrollBarPart(*static_cast<const QStyleOptionSlider*>(option), subControl);
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

void applySkin(QWidget& root) {
    auto* style = root.findChild<SkinStyle*>({}, Qt::FindDirectChildrenOnly);
    if (style == nullptr) {
        style = new SkinStyle(&root);
        root.setPalette(palette());
    }
    root.setStyle(style);
    for (QWidget* child : root.findChildren<QWidget*>()) {
        child->setStyle(style);
        if (auto* combo = qobject_cast<QComboBox*>(child)) {
            combo->view()->setStyle(style);
            combo->view()->window()->setPalette(palette());
        }
    }
}

void setPrimary(QWidget& button) {
    button.setProperty(kPrimaryProperty, true);
}

}  // namespace vellora::skin
