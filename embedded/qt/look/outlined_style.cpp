#include "embedded/qt/look/outlined_style.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"

#include <QPainter>
#include <QStyleOption>

namespace drafta {

namespace {

QColor outlineOf(const Theme& theme, const QStyleOption& option) {
    if (option.state & QStyle::State_HasFocus)
        return theme.accent;
    if (!(option.state & QStyle::State_Enabled))
        return theme.line;
    return theme.look == Look::highContrast ? theme.drawing : theme.quietText.darker(135);
}

/// Buttons without a frame of their own, and those whose frame says something.
bool hasOtherFrame(const QStyleOption& option) {
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const auto special =
        QStyleOptionButton::Flat | QStyleOptionButton::CommandLinkButton | QStyleOptionButton::DefaultButton;
    return button && (button->features & special);
}

/// A command link shows its focus nowhere else.
bool isFocusedLink(const QStyleOption& option) {
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button && (button->features & QStyleOptionButton::CommandLinkButton) &&
           (option.state & QStyle::State_HasFocus);
}

void drawOutline(const QStyleOption& option, QPainter& painter, bool isRound) {
    const Theme& theme = currentTheme();
    if (!isFocusedLink(option) && (!theme.isDark() || hasOtherFrame(option)))
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outlineOf(theme, option));
    painter.setBrush(Qt::NoBrush);
    const QRectF edge = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isRound)
        painter.drawEllipse(edge);
    else
        painter.drawRoundedRect(edge, 2, 2);
    painter.restore();
}

bool isBelow(QTabBar::Shape shape) {
    return shape == QTabBar::RoundedSouth || shape == QTabBar::TriangularSouth;
}

void drawTabEdge(const QStyleOptionTab& tab, QPainter& painter) {
    const Theme& theme = currentTheme();
    if (theme.look == Look::highContrast) {
        painter.setPen(theme.line);
        painter.drawRect(tab.rect.adjusted(0, 0, -1, 0));
    }
    if (!(tab.state & QStyle::State_Selected))
        return;
    constexpr int height = 2;
    const int top = isBelow(tab.shape) ? tab.rect.bottom() + 1 - height : tab.rect.top();
    painter.fillRect(tab.rect.left() + 1, top, tab.rect.width() - 2, height, theme.accent);
}

} // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QIcon OutlinedStyle::standardIcon(
    StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    switch (icon) {
    case SP_TitleBarCloseButton:
    case SP_DockWidgetCloseButton:
        return themeIcon("clear");
    case SP_TitleBarNormalButton:
        return themeIcon("float");
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

void OutlinedStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    if (element == PE_IndicatorTabClose) {
        const bool isUnder = option->state & State_MouseOver;
        if (isUnder)
            painter->fillRect(option->rect, currentTheme().line);
        themeIcon("clear").paint(painter, option->rect.adjusted(2, 2, -2, -2));
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_FrameLineEdit:
    case PE_Frame:
    case PE_PanelButtonCommand:
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        drawOutline(*option, *painter, false);
        break;
    case PE_IndicatorRadioButton:
        drawOutline(*option, *painter, true);
        break;
    default:
        break;
    }
}

void OutlinedStyle::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    if (element == CE_TabBarTabShape && tab && currentTheme().isDark())
        drawTabEdge(*tab, *painter);
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
    QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox)
        drawOutline(*option, *painter, false);
    if (control == CC_ScrollBar && currentTheme().look == Look::highContrast) {
        painter->setPen(currentTheme().line);
        painter->drawRect(subControlRect(control, option, SC_ScrollBarSlider, widget).adjusted(1, 1, -2, -2));
    }
}

} // namespace drafta
