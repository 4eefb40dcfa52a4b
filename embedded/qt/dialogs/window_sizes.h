// How large people have made windows.
#pragma once

#include <QSize>
#include <QString>
#include <functional>

namespace drafta {

/// Where sizes are kept from run to run, by the names of dialogs and in device-independent pixels; either may
/// be unset. `get` gives an invalid size for a window that it does not know.
struct WindowSizes {
    std::function<QSize(const QString& window)> get;
    std::function<void(const QString& window, QSize size)> set;
};

} // namespace drafta
