// The style of the windows: Fusion, whose fields and boxes can be seen on a dark ground too.
#pragma once

#include <QIcon>
#include <QProxyStyle>

namespace drafta {

/// Fusion makes outlines out of the window's colour, darker; where that is dark already nothing is left of
/// them. Here they are drawn again in a colour that stands out by 3 : 1.
class OutlinedStyle final : public QProxyStyle {
public:
    OutlinedStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    /// The window's own icons where the usual ones cannot be seen on a dark ground.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    /// Where the ground is dark the tab that is selected has a bar in the accent's colour; little else tells.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget) const override;
};

} // namespace drafta
