// Finds texts of windows and menus that have less room than they need.
#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QToolButton>

namespace drafta::test {

inline QString withoutMarks(QString text) {
    return text.remove(u'&').section(u'\t', 0, 0);
}

/// Besides its text a button has room for its box, its arrow and the like.
inline bool isCut(const QAbstractButton& button) {
    const QFontMetrics letters = button.fontMetrics();
    const auto* const tool = qobject_cast<const QToolButton*>(&button);
    if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull())
        return false;
    const int width = letters.horizontalAdvance(withoutMarks(button.text()));
    const int beside = tool ? 0 : std::max(0, button.minimumSizeHint().width() - width);
    return !button.text().isEmpty() &&
           (button.width() < width + beside || button.height() < letters.height());
}

/// A label may break lines, but not words.
inline bool isCut(const QLabel& label) {
    const QFontMetrics letters = label.fontMetrics();
    if (label.text().isEmpty())
        return false;
    if (!label.wordWrap())
        return label.textFormat() != Qt::RichText && !label.text().startsWith(u"<qt>") &&
               (label.width() < letters.horizontalAdvance(withoutMarks(label.text())) ||
                   label.height() < letters.height());
    for (const QString& word : label.text().split(u' '))
        if (!word.startsWith(u'<') && label.width() < letters.horizontalAdvance(withoutMarks(word)))
            return true;
    return label.height() < label.heightForWidth(label.width());
}

inline QStringList cutTexts(const QWidget& window) {
    QStringList cut;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const auto* const group = qobject_cast<const QGroupBox*>(widget);
        if (button && isCut(*button))
            cut += button->text();
        if (label && isCut(*label))
            cut += label->text();
        if (group && group->width() < group->fontMetrics().horizontalAdvance(group->title()))
            cut += group->title();
    }
    for (const QTabBar* const tabs : window.findChildren<QTabBar*>())
        for (int tab = 0; tab < tabs->count(); ++tab)
            if (tabs->isVisible() && tabs->tabRect(tab).width() < tabs->fontMetrics().horizontalAdvance(
                                                                      withoutMarks(tabs->tabText(tab))))
                cut += tabs->tabText(tab);
    return cut;
}

inline QStringList cutTexts(QMenu& menu) {
    QStringList cut;
    for (QAction* const action : menu.actions()) {
        const QFontMetrics letters = menu.fontMetrics();
        const QRect room = menu.actionGeometry(action);
        const int keys = letters.horizontalAdvance(action->shortcut().toString(QKeySequence::NativeText));
        if (!action->isSeparator() &&
            (room.width() < letters.horizontalAdvance(withoutMarks(action->text())) + keys ||
                room.height() < letters.height()))
            cut += action->text();
    }
    return cut;
}

} // namespace drafta::test
