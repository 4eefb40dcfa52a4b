// The catalog browser, a sibling module that follows the active project.
#pragma once

#include "base/strings.h"

namespace ryv {

class CatalogBrowser {
public:
    virtual ~CatalogBrowser() = default;

    /// The active project is another one, or a project was read again.
    virtual void projectChanged() = 0;
};

/// Where the browser comes from.
class CatalogBrowserModule {
public:
    virtual ~CatalogBrowserModule() = default;

    /// Loads a module through the host and gives the browser that its "ryvmgdCatalogBrowserServices" returns.
    /// Not owned; lasts as long as this object. Null when the module cannot be loaded.
    virtual CatalogBrowser* load(CStringView moduleName) = 0;
};

/// No module can be loaded.
class NullCatalogBrowserModule final : public CatalogBrowserModule {
public:
    CatalogBrowser* load(CStringView) override { return nullptr; }
};

} // namespace ryv
