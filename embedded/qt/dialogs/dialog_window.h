// A window for any dialog: panels, pages and buttons as the dialog's model has them.
#pragma once

#include "embedded/qt/dialogs/panel_view.h"
#include "embedded/qt/dialogs/window_sizes.h"
#include "toolkit/dialog.h"

#include <QDialog>
#include <QEventLoop>
#include <exception>
#include <functional>

class QTabWidget;
class QVBoxLayout;

namespace ryv {
class PropertySheet;
} // namespace ryv

namespace drafta {

/// Enter presses the button that has the keyboard, else the default button; Escape and closing the window
/// cancel. While a field shows a text that it does not accept, OK and the default button lead to that field.
class DialogWindow final : public QDialog {
public:
    /// Of an open dialog, which outlives the window, as `context` and `sizes` do.
    DialogWindow(ryv::Dialog& dialog, const ViewContext& context, const WindowSizes& sizes, QWidget* parent);
    ~DialogWindow() override;

    /// Shows the dialog until it has ended, or until breakOff(). Passes on what a gesture's work throws.
    void run();

    /// Lets run() return, with the dialog as it is.
    void breakOff();

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    QWidget* makeContent();
    void addPages(QVBoxLayout& rows, ryv::PropertySheet& sheet);
    void addButtons(QVBoxLayout& rows);
    void perform(const std::function<void()>& work);
    void takeArrangement();
    void takePage();
    void takeFocus();
    void takeDefaultButton();
    void noteFocus(QWidget* widget);
    void focusFirst();
    bool focusFirst(bool (*takes)(const ryv::Control&));
    void addTurning(const QKeySequence& keys, int step);
    QSize usualSize() const;
    bool mayPress(int button);
    void pressDefault();

    ryv::Dialog& dialog_;
    ryv::PropertySheet* sheet_;
    const ViewContext& outer_;
    const WindowSizes& sizes_;
    ViewContext context_;
    ControlViews views_;
    QTabWidget* pages_ = nullptr;
    QEventLoop loop_;
    std::exception_ptr failure_;
    bool brokenOff_ = false;
    ryv::Subscription rearrangements_;
    ryv::Subscription end_;
};

} // namespace drafta
