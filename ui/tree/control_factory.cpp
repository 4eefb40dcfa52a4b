#include "ui/tree/control_factory.h"

#include <utility>

namespace ryv {

RyvPrmControlFactory& RyvPrmControlFactory::Instance() {
    static RyvPrmControlFactory instance;
    return instance;
}

RyvPrmControlFactory::~RyvPrmControlFactory() {
    RegisterImplementation(nullptr);
}

void RyvPrmControlFactory::RegisterImplementation(IRyvPrmControlFactoryImpl* implementation) {
    IRyvPrmControlFactoryImpl* const before = std::exchange(implementation_, implementation);
    if (before && before != implementation)
        before->Destroy();
}

std::unique_ptr<CProjectTree> RyvPrmControlFactory::NewProjectTree() {
    std::unique_ptr<CProjectTree> tree(implementation_ ? implementation_->NewProjectTree() : nullptr);
    return tree ? std::move(tree) : std::make_unique<CProjectTree>();
}

std::unique_ptr<RyvPrmComboBox> RyvPrmControlFactory::NewProjectComboBox() {
    std::unique_ptr<RyvPrmComboBox> box(implementation_ ? implementation_->NewProjectComboBox() : nullptr);
    return box ? std::move(box) : std::make_unique<RyvPrmComboBox>();
}

} // namespace ryv
