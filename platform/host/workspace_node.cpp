#include "platform/host/workspace_node.h"

#include "base/fold.h"

#include <iterator>
#include <utility>

namespace ryv {

WorkspaceNode::~WorkspaceNode() {
    std::vector<std::unique_ptr<WorkspaceNode>> ending = std::move(children_);
    while (!ending.empty()) {
        const std::unique_ptr<WorkspaceNode> last = std::move(ending.back());
        ending.pop_back();
        std::move(last->children_.begin(), last->children_.end(), std::back_inserter(ending));
        last->children_.clear();
    }
}

WorkspaceNode& WorkspaceNode::addChild(CStringView name) {
    return *children_.emplace_back(std::make_unique<WorkspaceNode>(CString(name)));
}

WorkspaceNode* WorkspaceNode::findChild(CStringView name) noexcept {
    return const_cast<WorkspaceNode*>(std::as_const(*this).findChild(name));
}

const WorkspaceNode* WorkspaceNode::findChild(CStringView name) const noexcept {
    for (const auto& child : children_)
        if (equalNoCase(child->name_, name))
            return child.get();
    return nullptr;
}

void WorkspaceNode::set(CStringView name, Value value) {
    for (Attribute& attribute : attributes_) {
        if (equalNoCase(attribute.name, name)) {
            attribute.value = std::move(value);
            return;
        }
    }
    attributes_.push_back({CString(name), std::move(value)});
}

const WorkspaceNode::Value* WorkspaceNode::find(CStringView name) const noexcept {
    for (const Attribute& attribute : attributes_)
        if (equalNoCase(attribute.name, name))
            return &attribute.value;
    return nullptr;
}

} // namespace ryv
