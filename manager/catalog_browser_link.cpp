#include "manager/catalog_browser_link.h"

#include "base/format.h"
#include "bridge/platform.h"

namespace ryv {

namespace {
constexpr CStringView browserModule = u"RYVCATALOGBROWSERMGDREV.dll";
constexpr CStringView cannotLoad = u"Unable to load module [%s].\n";
} // namespace

void CatalogBrowserLink::notify() {
    if (!browser_)
        browser_ = platform().services.catalogBrowser->load(browserModule);
    if (browser_)
        browser_->projectChanged();
    else
        platform().host.console->print(format(cannotLoad, {browserModule}));
}

} // namespace ryv
