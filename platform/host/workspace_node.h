// A node of the host's saved workspace layout: a name, typed attributes and child nodes.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

namespace ryv {

/// Owns its children; references to a node hold until its parent ends. Names of nodes and attributes are
/// compared without regard to case and kept as they were first given. Depth does not matter: destruction is a
/// loop.
class WorkspaceNode {
public:
    using Value = std::variant<std::int32_t, double, CString>;
    struct Attribute {
        CString name;
        Value value;
    };

    explicit WorkspaceNode(CString name) : name_(std::move(name)) {}
    WorkspaceNode(const WorkspaceNode&) = delete;
    WorkspaceNode& operator=(const WorkspaceNode&) = delete;
    ~WorkspaceNode();

    const CString& name() const noexcept { return name_; }

    /// Adds a node behind the other children, even when one of them has that name.
    WorkspaceNode& addChild(CStringView name);

    /// The first child of that name; null when there is none.
    WorkspaceNode* findChild(CStringView name) noexcept;
    const WorkspaceNode* findChild(CStringView name) const noexcept;

    /// In the order of adding.
    const std::vector<std::unique_ptr<WorkspaceNode>>& children() const noexcept { return children_; }

    /// Sets an attribute, whatever type it had before.
    void setInteger(CStringView name, std::int32_t value) { set(name, value); }
    void setReal(CStringView name, double value) { set(name, value); }
    void setString(CStringView name, CStringView value) { set(name, CString(value)); }

    /// Reads an attribute. False, `value` left alone, when there is none or it is of another type.
    bool integer(CStringView name, std::int32_t& value) const { return get(name, value); }
    bool real(CStringView name, double& value) const { return get(name, value); }
    bool string(CStringView name, CString& value) const { return get(name, value); }

    /// In the order of first setting.
    const std::vector<Attribute>& attributes() const noexcept { return attributes_; }

private:
    void set(CStringView name, Value value);
    const Value* find(CStringView name) const noexcept;
    template <class T>
    bool get(CStringView name, T& value) const {
        const Value* const found = find(name);
        const T* const typed = found ? std::get_if<T>(found) : nullptr;
        if (typed)
            value = *typed;
        return typed != nullptr;
    }

    CString name_;
    std::vector<Attribute> attributes_;
    std::vector<std::unique_ptr<WorkspaceNode>> children_;
};

} // namespace ryv
