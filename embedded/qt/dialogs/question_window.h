// A window that asks one thing and is answered with a button: message boxes and task dialogs.
#pragma once

#include "platform/ui/user_interface.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <vector>

class QPushButton;
class QVBoxLayout;

namespace drafta {

struct QuestionButton {
    int id = 0;
    QString text; ///< "&" marks a letter
    QDialogButtonBox::ButtonRole role = QDialogButtonBox::ActionRole;
    bool isLink = false; ///< stands below the text, over the whole width
};

struct QuestionContent {
    QString title;
    ryv::MessageIcon icon = ryv::MessageIcon::none;
    QString instruction; ///< in large letters; may be empty
    QString text;
    std::vector<QuestionButton> buttons;
    int defaultButton = 0; ///< 0 for none
    int closed = 0;        ///< what Escape and closing the window answer
};

class QuestionWindow final : public QDialog {
public:
    QuestionWindow(const QuestionContent& content, QWidget* parent);

    /// The number of the button that was pressed, or `closed`. Nests.
    int ask();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addTexts(const QuestionContent& content, QVBoxLayout& rows);
    void addButtons(const QuestionContent& content, QVBoxLayout& rows);
    QPushButton* makeButton(const QuestionButton& button);
    void take(QPushButton& view, const QuestionButton& button, bool isDefault);

    int answer_;
    QPushButton* first_ = nullptr; // what has the keyboard at first
};

} // namespace drafta
