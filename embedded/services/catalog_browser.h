// The package's catalog browser, as far as a host without its window has one: it knows how often it was told
// to look at the active project again.
#pragma once

#include "platform/services/catalog_browser.h"

#include <cstdint>

namespace drafta {

class ToldCatalogBrowser final : public ryv::CatalogBrowserModule, private ryv::CatalogBrowser {
public:
    /// The host brings one module only.
    ryv::CatalogBrowser* load(ryv::CStringView moduleName) override;

    std::int32_t changes() const noexcept { return changes_; }

private:
    void projectChanged() override { ++changes_; }

    std::int32_t changes_ = 0;
};

} // namespace drafta
