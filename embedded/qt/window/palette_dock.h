// A palette set as a window that docks at the main window's sides or floats.
#pragma once

#include "base/event.h"
#include "embedded/palettes/palette_set.h"
#include "embedded/qt/controls/control_view.h"

#include <QDockWidget>

#include <map>

class QMainWindow;
class QStackedWidget;
class QTabBar;

namespace drafta {

/// Draws what the set says and tells it where the person puts it.
class PaletteDock : public QDockWidget {
public:
    /// The set outlives the dock.
    PaletteDock(PaletteSet& set, ViewContext& context, QMainWindow& window);

    PaletteSet& set() const noexcept { return set_; }

    /// Nothing that happens to the widget from here on is what the person wants; the window ends.
    void stopTelling() noexcept { telling_ = false; }

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void follow();
    void place();
    void tellPlace();
    void comeOntoScreen();
    void takePalettes();

    PaletteSet& set_;
    ViewContext& context_;
    QMainWindow& window_;
    QTabBar* tabs_;
    QStackedWidget* palettes_;
    std::map<Palette*, QWidget*> views_;
    bool following_ = false;
    bool telling_ = true;
    ryv::Subscription subscription_;
};

} // namespace drafta
