#include "embedded/qt/look/theme.h"

#include <QApplication>

namespace drafta {

namespace {

/// The few colours that a theme is made of; all else is derived.
struct Shades {
    QRgb window, base, button, text, quiet, line, selection, selectionText, idleSelection, accent, accentText,
        warning, notice, marked, canvas, drawing;
};

constexpr Shades lightShades{0xffF3F5F7, 0xffFFFFFF, 0xffFBFCFD, 0xff1C2329, 0xff59636E, 0xffD3D9DF,
    0xff0B5FBF, 0xffFFFFFF, 0xffD5E3F3, 0xff0B5FBF, 0xffFFFFFF, 0xffB3261E, 0xffE7F0FB, 0xffFFF0CC,
    0xffFFFFFF, 0xff20262C};
constexpr Shades darkShades{0xff24282D, 0xff1B1E22, 0xff2E3338, 0xffE6EAEE, 0xffA7B1BB, 0xff3C434A,
    0xff2F6FB8, 0xffFFFFFF, 0xff33485F, 0xff6CB2F7, 0xff10161C, 0xffFF9086, 0xff22364B, 0xff4A3A12,
    0xff16191C, 0xffE4E8EB};
constexpr Shades contrastShades{0xff000000, 0xff000000, 0xff000000, 0xffFFFFFF, 0xffFFFFFF, 0xffFFFFFF,
    0xffFFFF00, 0xff000000, 0xffFFFF00, 0xff00FFFF, 0xff000000, 0xffFFFF00, 0xff000000, 0xff004080,
    0xff000000, 0xffFFFFFF};

const Shades& shadesOf(Look look) {
    switch (look) {
    case Look::dark:
        return darkShades;
    case Look::highContrast:
        return contrastShades;
    case Look::light:
        break;
    }
    return lightShades;
}

QColor mixed(QColor a, QColor b, int percentOfB) {
    const auto mix = [percentOfB](int x, int y) { return (x * (100 - percentOfB) + y * percentOfB) / 100; };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

QPalette paletteOf(const Shades& shades) {
    const QColor window(shades.window);
    const QColor text(shades.text);
    const QColor line(shades.line);
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, QColor color) { palette.setColor(role, color); };
    set(QPalette::Window, window);
    set(QPalette::WindowText, text);
    set(QPalette::Base, shades.base);
    set(QPalette::AlternateBase, mixed(shades.base, window, 60));
    set(QPalette::Text, text);
    set(QPalette::PlaceholderText, shades.quiet);
    set(QPalette::Button, shades.button);
    set(QPalette::ButtonText, text);
    set(QPalette::BrightText, shades.warning);
    set(QPalette::ToolTipBase, shades.base);
    set(QPalette::ToolTipText, text);
    set(QPalette::Link, shades.accent);
    set(QPalette::LinkVisited, shades.accent);
    set(QPalette::Light, mixed(shades.button, shades.base, 50));
    set(QPalette::Midlight, mixed(window, shades.base, 50));
    set(QPalette::Mid, line);
    set(QPalette::Dark, mixed(line, text, 25));
    set(QPalette::Shadow, mixed(line, text, 50));
    set(QPalette::Highlight, shades.selection);
    set(QPalette::HighlightedText, shades.selectionText);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, shades.idleSelection);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
        shades.selection == shades.idleSelection ? QColor(shades.selectionText) : text);
    const QColor disabled = mixed(text, window, 55);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    return palette;
}

QString styleSheetOf(const Theme& theme) {
    const QString line = theme.line.name();
    const QString quiet = theme.quietText.name();
    return QStringLiteral("QToolTip { border: 1px solid %1; padding: 1px; }"
                          "QMainWindow::separator { background: %1; width: 1px; height: 1px; }"
                          "QMainWindow::separator:hover { background: %3; }"
                          "QSplitter::handle { background: %1; }"
                          "QSplitter::handle:hover { background: %3; }"
                          "QMenuBar { border-bottom: 1px solid %1; }"
                          "QStatusBar { border-top: 1px solid %1; color: %2; }"
                          "QStatusBar::item { border: none; }")
        .arg(line, quiet, theme.accent.name());
}

Theme& applied() {
    static Theme theme = themeFor(Look::light);
    return theme;
}

} // namespace

Theme themeFor(Look look) {
    const Shades& shades = shadesOf(look);
    Theme theme;
    theme.look = look;
    theme.palette = paletteOf(shades);
    theme.accent = shades.accent;
    theme.accentText = shades.accentText;
    theme.quietText = shades.quiet;
    theme.line = shades.line;
    theme.warning = shades.warning;
    theme.noticeBase = shades.notice;
    theme.markedBase = shades.marked;
    theme.canvas = shades.canvas;
    theme.drawing = shades.drawing;
    return theme;
}

void applyTheme(QApplication& application, const Theme& theme) {
    applied() = theme;
    application.setPalette(theme.palette);
    application.setStyleSheet(styleSheetOf(theme));
}

const Theme& currentTheme() {
    return applied();
}

} // namespace drafta
