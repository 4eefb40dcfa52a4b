// Captions above pages of which one is shown, and a button that minimizes it all to the captions.
#pragma once

#include <QWidget>
#include <functional>

class QStackedWidget;
class QTabBar;
class QToolButton;

namespace drafta {

/// Shows what it is told to; what the person does goes to the hooks.
class CaptionedPages : public QWidget {
public:
    struct Hooks {
        std::function<void(int page)> turn; ///< a caption was clicked, or reached by keys
        std::function<void()> fold;         ///< to be minimized, or no longer
    };
    CaptionedPages(Hooks hooks, QWidget* parent);

    int count() const;
    /// Takes the page, which may be a child of anything. `caption` is shown as it is.
    void addPage(const QString& caption, QWidget& page);
    /// A minimized one has the height of its captions; whoever gives it a place gives the rest to others.
    void show(int page, bool minimized);
    void showCaptions(bool shown);

private:
    void arrange();

    Hooks hooks_;
    QWidget* head_;
    QTabBar* captions_;
    QToolButton* fold_;
    QStackedWidget* pages_;
    bool following_ = false;
};

} // namespace drafta
