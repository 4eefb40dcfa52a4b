#include "embedded/services/catalog_browser.h"

#include "base/fold.h"

namespace drafta {

ryv::CatalogBrowser* ToldCatalogBrowser::load(ryv::CStringView moduleName) {
    return ryv::equalNoCase(moduleName, u"RYVCATALOGBROWSERMGDREV.dll") ? this : nullptr;
}

} // namespace drafta
