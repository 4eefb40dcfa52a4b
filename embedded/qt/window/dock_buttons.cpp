#include "embedded/qt/window/dock_buttons.h"

#include <QAbstractButton>
#include <QDockWidget>

namespace drafta {

void explainTitleButtons(QDockWidget& dock) {
    const auto explain = [&dock](const char* name, const QString& text) {
        if (auto* const button = dock.findChild<QAbstractButton*>(QLatin1String(name)))
            button->setToolTip(text);
    };
    explain("qt_dockwidget_floatbutton", QDockWidget::tr("Float or dock"));
    explain("qt_dockwidget_closebutton", QDockWidget::tr("Close; View brings it back"));
}

} // namespace drafta
