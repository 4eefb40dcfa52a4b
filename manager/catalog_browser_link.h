// The catalog browser, found once and told of changes.
#pragma once

#include "platform/services/catalog_browser.h"

namespace ryv {

class CatalogBrowserLink {
public:
    /// Tells the browser that the active project is another one or was read again. A browser whose module
    /// cannot be loaded is looked for again the next time; each failure is printed on the command line.
    void notify();

private:
    CatalogBrowser* browser_ = nullptr;
};

} // namespace ryv
