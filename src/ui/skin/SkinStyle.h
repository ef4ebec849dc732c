#pragma once

#include <QProxyStyle>

namespace vellora::skin {

/// The look of standard controls in the module's dialogs, drawn at device resolution and
/// independent of the host application's own style.
class SkinStyle : public QProxyStyle {
public:
    explicit SkinStyle(QObject* parent);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
};

/// Gives a window and everything in it the skin: style, palette, and pop-ups of combo boxes.
/// Call again for controls added later.
void applySkin(QWidget& root);

/// Marks a push button as the one that carries the main action.
void setPrimary(QWidget& button);

}  // namespace vellora::skin
