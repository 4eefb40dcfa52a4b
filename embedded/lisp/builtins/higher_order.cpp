// Functions that take functions.
#include "embedded/lisp/builtins/builtins.h"

#include <algorithm>

namespace drafta::lisp {

namespace {

/// The function's value for one element of a list.
Value callWith(Machine& machine, Value function, Value element) {
    return machine.call(function, {&element, 1});
}

Value apply(Machine& machine, Arguments arguments) {
    return machine.callWithList(arguments[0], listArgument(arguments[1]));
}

/// Up to the end of the shortest list.
Value mapcar(Machine& machine, Arguments arguments) {
    const Root function(machine, machine.functionOf(arguments[0]));
    std::vector<Value> rests(arguments.begin() + 1, arguments.end());
    std::vector<Value> elements(rests.size());
    for (const Value rest : rests)
        listArgument(rest);
    ListBuilder result(machine);
    while (std::all_of(rests.begin(), rests.end(), [](Value rest) { return rest.isCons(); })) {
        for (std::size_t i = 0; i < rests.size(); ++i) {
            elements[i] = rests[i].car();
            rests[i] = rests[i].cdr();
        }
        result.add(machine.call(function, elements));
    }
    return result.take();
}

template <bool removes>
Value filter(Machine& machine, Arguments arguments) {
    const Root function(machine, machine.functionOf(arguments[0]));
    ListBuilder result(machine);
    for (Value rest = listArgument(arguments[1]); rest.isCons(); rest = rest.cdr())
        if (callWith(machine, function, rest.car()).isNil() == removes)
            result.add(rest.car());
    return result.take();
}

/// The list from the first element on for which the function's value is, or is not, nil.
template <bool wantsNil>
Value memberIf(Machine& machine, Arguments arguments) {
    const Root function(machine, machine.functionOf(arguments[0]));
    for (Value rest = listArgument(arguments[1]); rest.isCons(); rest = rest.cdr())
        if (callWith(machine, function, rest.car()).isNil() == wantsNil)
            return rest;
    return {};
}

Value every(Machine& machine, Arguments arguments) {
    return machine.boolean(memberIf<true>(machine, arguments).isNil());
}

/// The first value that is not nil.
Value some(Machine& machine, Arguments arguments) {
    const Root function(machine, machine.functionOf(arguments[0]));
    for (Value rest = listArgument(arguments[1]); rest.isCons(); rest = rest.cdr())
        if (const Value value = callWith(machine, function, rest.car()); !value.isNil())
            return value;
    return {};
}

/// Merges neighbouring runs, ever longer ones. Whatever LISP code answers, this ends and stays within bounds,
/// which the standard algorithms do not promise; equal elements keep their order.
class Sorter {
public:
    Sorter(Machine& machine, Value isLess, std::vector<Value> items)
        : machine_(&machine), isLess_(machine, machine.functionOf(isLess)), items_(std::move(items)) {
        order_.resize(items_.size());
        for (std::size_t i = 0; i < order_.size(); ++i)
            order_[i] = i;
    }

    /// The indices of the items in their order.
    const std::vector<std::size_t>& sort() {
        for (std::size_t width = 1; width < order_.size(); width *= 2) {
            std::vector<std::size_t> merged;
            merged.reserve(order_.size());
            for (std::size_t start = 0; start < order_.size(); start += 2 * width)
                merge(start, std::min(start + width, order_.size()),
                    std::min(start + 2 * width, order_.size()), merged);
            order_.swap(merged);
        }
        return order_;
    }
    Value item(std::size_t index) const { return items_[index]; }

private:
    void merge(std::size_t left, std::size_t middle, std::size_t end, std::vector<std::size_t>& merged) {
        std::size_t right = middle;
        while (left < middle && right < end)
            merged.push_back(isLess(order_[right], order_[left]) ? order_[right++] : order_[left++]);
        while (left < middle)
            merged.push_back(order_[left++]);
        while (right < end)
            merged.push_back(order_[right++]);
    }
    bool isLess(std::size_t a, std::size_t b) {
        const Value pair[] = {items_[a], items_[b]};
        return !machine_->call(isLess_, pair).isNil();
    }

    Machine* machine_;
    Root isLess_;
    std::vector<Value> items_; // elements of the list that is being sorted, which keeps them alive
    std::vector<std::size_t> order_;
};

std::vector<Value> elementsOf(Value list) {
    std::vector<Value> items;
    for (Value rest = listArgument(list); rest.isCons(); rest = rest.cdr())
        items.push_back(rest.car());
    return items;
}

template <bool wantsIndices>
Value sort(Machine& machine, Arguments arguments) {
    Sorter sorter(machine, arguments[1], elementsOf(arguments[0]));
    ListBuilder result(machine);
    for (const std::size_t index : sorter.sort())
        result.add(wantsIndices ? Value::integer(static_cast<std::int32_t>(index)) : sorter.item(index));
    return result.take();
}

constexpr Definition definitions[] = {
    {u"apply", 2, 2, apply},
    {u"mapcar", 2, anyNumber, mapcar},
    {u"vl-remove-if", 2, 2, filter<true>},
    {u"vl-remove-if-not", 2, 2, filter<false>},
    {u"vl-member-if", 2, 2, memberIf<false>},
    {u"vl-member-if-not", 2, 2, memberIf<true>},
    {u"vl-every", 2, 2, every},
    {u"vl-some", 2, 2, some},
    {u"vl-sort", 2, 2, sort<false>},
    {u"vl-sort-i", 2, 2, sort<true>},
};

} // namespace

void defineHigherOrder(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
