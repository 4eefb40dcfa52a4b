// The command line in the window: what was printed, and a line to type in.
#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace drafta {

class CommandPane : public QWidget {
    Q_OBJECT

public:
    explicit CommandPane(QWidget* parent = nullptr);

    /// Prints text as it stands; "\n" begins a new line.
    void print(const QString& text);
    /// The same for what concerns the person rather than the command.
    void printProblem(const QString& text);

    /// What stands in front of the line; for a question, other than for commands, the line says that it wants
    /// an answer.
    void setPrompt(const QString& prompt, bool isQuestion);

    /// Gives the line the keyboard, and types something in that was typed elsewhere.
    void takeKeyboard(const QString& typed = {});

    /// The whole of what was printed.
    QString printed() const;

signals:
    /// The person has entered a line, which is in the history already.
    void entered(const QString& line);
    /// Escape: what is asked is not answered, what runs is to end.
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void append(const QString& text, bool isProblem);
    void enter();
    void recall(int step);
    void restyle();

    QPlainTextEdit* output_;
    QLabel* prompt_;
    QLineEdit* input_;
    QStringList history_;
    qsizetype recalled_ = 0;
    QString unfinished_;
};

} // namespace drafta
