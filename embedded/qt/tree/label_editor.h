// The field in which the label of a row is edited, with a line below it that says what is wrong.
#pragma once

#include "base/strings.h"

#include <QLineEdit>
#include <functional>
#include <optional>

class QLabel;

namespace drafta {

class LabelEditor final : public QLineEdit {
public:
    struct Hooks {
        /// What is wrong with a text; empty when nothing is.
        std::function<QString(const QString& text)> problem;
        /// The user is through: with a text, or without one when he gave up. Called once at most. Dismiss the
        /// editor in it.
        std::function<void(const std::optional<ryv::CString>& text)> finish;
    };

    /// Has the keyboard, with the text selected; of the name of a file only what stands before the ending.
    LabelEditor(const QString& text, Hooks hooks, QWidget* parent);

    /// Where it stands in its parent.
    void place(const QRect& place);

    /// Goes when control is back in the event loop, and has nothing more to say.
    void dismiss();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void finish(bool accepted);
    void showProblem();
    void placeProblem();

    Hooks hooks_;
    QLabel* problem_;
};

} // namespace drafta
