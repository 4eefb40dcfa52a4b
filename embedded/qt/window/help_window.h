// A window that shows pages of the help.
#pragma once

#include <QWidget>

class QTextBrowser;

namespace drafta {

/// Ends itself when it is closed. Esc closes it, Alt+Left and Alt+Right go through what was read.
class HelpWindow final : public QWidget {
public:
    /// Shows a page, by its native path: in the window that is open, else in a new one beside `parent`, which
    /// may be null. A dialog that is open gets a window of its own, since it keeps the keyboard from others.
    /// Pages and pictures that are linked to and missing are looked for one folder above.
    static HelpWindow* showPage(const QString& file, QWidget* parent);

    QTextBrowser& pages() noexcept { return *pages_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    explicit HelpWindow(QWidget* parent);

    QTextBrowser* pages_;
};

} // namespace drafta
