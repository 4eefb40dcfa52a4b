#include "host/lisp/lisp_values.h"

namespace ryv {

LispValues::LispValues(const HostResultBuffer& chain, std::size_t first, std::size_t end) : chain_(&chain) {
    for (std::size_t node = first; node < end;) {
        const bool isList = chain.at(node).type == ResultType::listBegin;
        const Place place{node, isList ? closingMark(node, end) : node + 1};
        places_.push_back(place);
        node = isList ? place.end + 1 : place.end;
    }
}

/// Where the list that begins at `begin` has its end mark; `end` when it has none. Lists may be nested
/// deeply, so this counts.
std::size_t LispValues::closingMark(std::size_t begin, std::size_t end) const {
    std::size_t depth = 0;
    for (std::size_t node = begin; node < end; ++node) {
        const ResultType type = chain_->at(node).type;
        if (type == ResultType::listBegin)
            ++depth;
        else if (type == ResultType::listEnd && --depth == 0)
            return node;
    }
    return end;
}

const HostResultBuffer::Node* LispValues::nodeAt(std::size_t index) const {
    return index < places_.size() ? &chain_->at(places_[index].node) : nullptr;
}

const CString* LispValues::string(std::size_t index) const noexcept {
    return index < places_.size() ? chain_->stringAt(places_[index].node) : nullptr;
}

const std::int16_t* LispValues::integer(std::size_t index) const noexcept {
    return index < places_.size() ? chain_->integerAt(places_[index].node) : nullptr;
}

const std::int32_t* LispValues::longInteger(std::size_t index) const noexcept {
    const HostResultBuffer::Node* const node = nodeAt(index);
    return node ? std::get_if<std::int32_t>(&node->value) : nullptr;
}

bool LispValues::is(std::size_t index, ResultType type) const {
    const HostResultBuffer::Node* const node = nodeAt(index);
    return node && node->type == type;
}

std::optional<LispValues> LispValues::list(std::size_t index) const {
    const HostResultBuffer::Node* const node = nodeAt(index);
    if (!node)
        return std::nullopt;
    if (const auto* const nested = std::get_if<HostResultBuffer>(&node->value))
        return LispValues(*nested);
    if (node->type != ResultType::listBegin)
        return std::nullopt;
    return LispValues(*chain_, places_[index].node + 1, places_[index].end);
}

} // namespace ryv
