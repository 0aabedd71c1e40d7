#pragma once

#include <QtWidgets/QProxyStyle>

namespace zelvo::qt {

/// How this system's widgets look: flat, with hairlines, all fields of one height. Colours are the palette's.
/// What can't be typed into has the ground of its panel; a tab control with one page shows its caption as a
/// heading; a button with the property `primary` has the accent colour.
class ClinicStyle : public QProxyStyle {
    Q_OBJECT

public:
    ClinicStyle();
    /// What the windows' measures are multiplied by.
    void setZoom(double factor) { zoom_ = factor; }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;

private:
    int zoomed(int pixels) const { return static_cast<int>(pixels * zoom_); }

    double zoom_ = 1;
};

}  // namespace zelvo::qt
