// The colours and measures of the window: light, dark and high contrast.
#pragma once

#include <QColor>
#include <QPalette>

class QApplication;

class QObject;

namespace drafta {

enum class Look { light, dark, highContrast };

/// What a palette of Qt has no role for.
struct Theme {
    Look look = Look::light;
    QPalette palette;
    QColor accent;     ///< of what can be acted on: offers, drop places
    QColor accentText; ///< on the accent
    QColor quietText;  ///< what explains and is read second; still of 4.5 : 1 against the window
    QColor line;       ///< between parts of the window
    QColor warning;    ///< text that tells of something wrong
    QColor noticeBase; ///< behind notices
    QColor markedBase; ///< behind rows that catch the eye; their text is the usual one
    QColor canvas;     ///< behind drawings
    QColor drawing;    ///< lines of drawings without a colour of their own
    bool isDark() const { return palette.window().color().lightness() < 128; }
};

/// The look that the desktop asks for: high contrast when it says so, else dark or light by its colours.
Look systemLook();

/// Has `receiver`'s slot called whenever the desktop's settings change, without arguments.
void followSystemLook(QObject& receiver, const char* slot);

Theme themeFor(Look look);

/// Gives the application a theme's palette and style sheet. Widgets hear of it as a change of the palette.
void applyTheme(QApplication& application, const Theme& theme);

/// The theme applied last; light before.
const Theme& currentTheme();

/// Distances in device-independent pixels.
namespace metrics {
inline constexpr int gap = 8;        ///< between things that belong together
inline constexpr int margin = 12;    ///< at the edges of panes and dialogs
inline constexpr int icon = 16;      ///< edge of an icon in rows and buttons
inline constexpr int rowPadding = 3; ///< above and below the text of a row
} // namespace metrics

} // namespace drafta
