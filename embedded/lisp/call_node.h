// A call of a function.
#pragma once

#include "embedded/lisp/machine.h"

namespace drafta::lisp {

class CallNode : public Node {
public:
    CallNode(Operand function, Operands arguments, Site site)
        : function_(function), arguments_(std::move(arguments)), site_(site) {}

    Value run(Machine& machine) const override {
        machine.require(arguments_.size() + 1);
        Value* const base = machine.top();
        machine.push(function_.get(machine));
        for (const Operand& argument : arguments_)
            machine.push(argument.get(machine));
        return machine.apply(base, arguments_.size(), site_);
    }

protected:
    const Operand& argument(std::size_t index) const noexcept { return arguments_[index]; }
    const Site& site() const noexcept { return site_; }

private:
    Operand function_;
    Operands arguments_;
    Site site_;
};

/// A form that makes no sense.
class FaultNode final : public Node {
public:
    FaultNode(Site site, ryv::CString message) : site_(site), message_(std::move(message)) {}
    Value run(Machine& machine) const override { machine.fail(site_, message_); }

private:
    Site site_;
    ryv::CString message_;
};

} // namespace drafta::lisp
