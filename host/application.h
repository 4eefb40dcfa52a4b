// The module's application object: start-up, one call for each document, shut-down.
#pragma once

#include "host/module_application.h"
#include "host/nav_manager.h"

namespace ryv {

class CRyvPageManApp final : public RyvModuleApp {
public:
    CRyvPageManApp() noexcept;

private:
    ModuleResult onInitialiseApplication(ModuleContext& context) override;
    ModuleResult onUnloadApplication(ModuleContext& context) override;
    ModuleResult onLoadDrawing(ModuleContext& context) override;

    void initialiseModule();

    std::unique_ptr<RyvPrmNavManager> navManager_; ///< from start-up to shut-down
};

} // namespace ryv
