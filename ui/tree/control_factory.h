// The one place where the project tree and the list of open projects are made, so that another module of the
// package can put richer ones in their place.
#pragma once

#include "ui/tree/combo_box.h"
#include "ui/tree/project_tree.h"

#include <memory>

namespace ryv {

/// What another module registers; the order of the operations is relied upon outside.
class RYV_EXPORT IRyvPrmControlFactoryImpl {
public:
    /// Ends the object.
    virtual void Destroy() = 0;
    /// A new control, which belongs to who asked for it; null for the usual one.
    virtual CProjectTree* NewProjectTree() = 0;
    virtual RyvPrmComboBox* NewProjectComboBox() = 0;

protected:
    ~IRyvPrmControlFactoryImpl() = default; ///< Destroy() is how it ends
};

/// Main thread only.
class RYV_EXPORT RyvPrmControlFactory {
public:
    static RyvPrmControlFactory& Instance();

    RyvPrmControlFactory(const RyvPrmControlFactory&) = delete;
    RyvPrmControlFactory& operator=(const RyvPrmControlFactory&) = delete;
    /// Ends what is registered.
    ~RyvPrmControlFactory();

    /// Takes over the object that makes controls from now on; the one before it is ended, unless it is the
    /// same. Null: the usual controls are made again, which a module asks for before it is unloaded.
    void RegisterImplementation(IRyvPrmControlFactoryImpl* implementation);

    /// Never null.
    std::unique_ptr<CProjectTree> NewProjectTree();
    std::unique_ptr<RyvPrmComboBox> NewProjectComboBox();

private:
    RyvPrmControlFactory() = default;

    IRyvPrmControlFactoryImpl* implementation_ = nullptr;
};

} // namespace ryv
