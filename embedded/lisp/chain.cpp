#include "embedded/lisp/chain.h"

#include <limits>

namespace drafta::lisp {

namespace {

using ryv::HostResultBuffer;
using ryv::ResultType;

constexpr std::size_t deepest = 1000;       // lists within lists
constexpr std::size_t longest = 10'000'000; // nodes

/// Reads a chain; false when it is malformed.
class ChainReader {
public:
    explicit ChainReader(Machine& machine) : machine_(&machine) {}

    bool read(const HostResultBuffer& chain, Value& list) {
        if (++depth_ > deepest)
            return false;
        std::vector<std::unique_ptr<Level>> levels;
        levels.push_back(std::make_unique<Level>(*machine_));
        for (std::size_t i = 0; i < chain.size(); ++i)
            if (levels.size() + depth_ > deepest || !add(levels, chain.at(i)))
                return false;
        --depth_;
        return levels.size() == 1 && levels.back()->end(list);
    }

private:
    /// A list that has begun.
    struct Level {
        explicit Level(Machine& machine) : elements(machine) {}
        bool add(Value value) {
            if (state == dotted) {
                tail = value;
                state = ended;
                return true;
            }
            isEmpty = false;
            elements.add(value);
            return state == open;
        }
        bool dot() {
            const bool fits = state == open && !isEmpty;
            state = dotted;
            return fits;
        }
        bool end(Value& list) {
            list = elements.take(tail);
            return state != dotted;
        }
        ListBuilder elements;
        Value tail;
        bool isEmpty = true;
        enum { open, dotted, ended } state = open;
    };
    using Levels = std::vector<std::unique_ptr<Level>>;

    bool add(Levels& levels, const HostResultBuffer::Node& node) {
        switch (node.type) {
        case ResultType::listBegin:
            levels.push_back(std::make_unique<Level>(*machine_));
            return true;
        case ResultType::dot:
            return levels.back()->dot();
        case ResultType::listEnd:
            return close(levels);
        default:
            break;
        }
        Value value;
        return readValue(node, value) && levels.back()->add(value);
    }

    static bool close(Levels& levels) {
        Value list;
        if (levels.size() < 2 || !levels.back()->end(list))
            return false;
        levels.pop_back();
        return levels.back()->add(list);
    }

    bool readValue(const HostResultBuffer::Node& node, Value& value) {
        switch (node.type) {
        case ResultType::none:
        case ResultType::nil:
            return true;
        case ResultType::truth:
            value = machine_->truth();
            return true;
        case ResultType::nestedList: {
            const auto* const chain = std::get_if<HostResultBuffer>(&node.value);
            return chain && read(*chain, value);
        }
        default:
            return readHeld(node, value);
        }
    }

    /// Nodes that hold a number or a text: what they hold decides.
    bool readHeld(const HostResultBuffer::Node& node, Value& value) {
        if (const auto* const text = std::get_if<ryv::CString>(&node.value))
            value = machine_->string(*text);
        else if (const auto* const integer = std::get_if<std::int16_t>(&node.value))
            value = Value::integer(*integer);
        else if (const auto* const longInteger = std::get_if<std::int32_t>(&node.value))
            value = Value::integer(*longInteger);
        else if (const auto* const real = std::get_if<double>(&node.value))
            value = Value::real(*real);
        else
            return false;
        return true;
    }

    Machine* machine_;
    std::size_t depth_ = 0;
};

class ChainWriter {
public:
    explicit ChainWriter(Machine& machine) : machine_(&machine) {}

    void writeElements(Value list) {
        for (; list.isCons(); list = list.cdr())
            write(list.car());
        if (!list.isNil()) {
            chain_.addDot();
            write(list);
        }
    }

    void write(Value value) {
        if (chain_.size() >= longest)
            throw LispError(u"too many values for a chain");
        machine_->poll();
        switch (value.kind()) {
        case Kind::integer:
            writeInteger(value.asInteger());
            return;
        case Kind::real:
            chain_.addReal(value.asReal());
            return;
        case Kind::string:
            chain_.addString(value.text());
            return;
        case Kind::symbol:
            value == machine_->truth() ? chain_.addTruth() : chain_.addString(value.text());
            return;
        case Kind::failure:
            chain_.addString(static_cast<const Failure*>(value.object())->message);
            return;
        case Kind::cons:
            writeList(value);
            return;
        case Kind::nil:
            chain_.addNil();
            return;
        default:
            chain_.addNone();
        }
    }

    HostResultBuffer take() { return std::move(chain_); }

private:
    void writeList(Value list) {
        if (depth_ == deepest) {
            chain_.addNil();
            return;
        }
        ++depth_;
        chain_.addListBegin();
        writeElements(list);
        chain_.addListEnd();
        --depth_;
    }

    void writeInteger(std::int32_t number) {
        using Small = std::numeric_limits<std::int16_t>;
        if (number >= Small::min() && number <= Small::max())
            chain_.addInteger(static_cast<std::int16_t>(number));
        else
            chain_.addLongInteger(number);
    }

    Machine* machine_;
    std::size_t depth_ = 0;
    HostResultBuffer chain_;
};

} // namespace

std::optional<Value> listFromChain(Machine& machine, const HostResultBuffer& chain) {
    Value list;
    return ChainReader(machine).read(chain, list) ? std::optional(list) : std::nullopt;
}

HostResultBuffer resultChain(Machine& machine, Value value) {
    ChainWriter writer(machine);
    value.isCons() ? writer.writeElements(value) : writer.write(value);
    return writer.take();
}

HostResultBuffer argumentChain(Machine& machine, Arguments arguments) {
    ChainWriter writer(machine);
    for (const Value argument : arguments)
        writer.write(argument);
    return writer.take();
}

} // namespace drafta::lisp
