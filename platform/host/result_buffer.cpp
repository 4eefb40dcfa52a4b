#include "platform/host/result_buffer.h"

namespace ryv {

HostResultBuffer& HostResultBuffer::add(ResultType type) {
    nodes_.push_back(Node{type, {}});
    return *this;
}

HostResultBuffer& HostResultBuffer::addString(CStringView text) {
    nodes_.push_back(Node{ResultType::string, CString(text)});
    return *this;
}

HostResultBuffer& HostResultBuffer::addInteger(std::int16_t number) {
    nodes_.push_back(Node{ResultType::integer, number});
    return *this;
}

HostResultBuffer& HostResultBuffer::addLongInteger(std::int32_t number) {
    nodes_.push_back(Node{ResultType::longInteger, number});
    return *this;
}

HostResultBuffer& HostResultBuffer::addReal(double number) {
    nodes_.push_back(Node{ResultType::real, number});
    return *this;
}

HostResultBuffer& HostResultBuffer::addNone() {
    return add(ResultType::none);
}

HostResultBuffer& HostResultBuffer::addNil() {
    return add(ResultType::nil);
}

HostResultBuffer& HostResultBuffer::addTruth() {
    return add(ResultType::truth);
}

HostResultBuffer& HostResultBuffer::addListBegin() {
    return add(ResultType::listBegin);
}

HostResultBuffer& HostResultBuffer::addListEnd() {
    return add(ResultType::listEnd);
}

HostResultBuffer& HostResultBuffer::addDot() {
    return add(ResultType::dot);
}

HostResultBuffer& HostResultBuffer::addStrings(const CStringArray& texts) {
    if (texts.empty())
        return addNil();
    addListBegin();
    for (const CString& text : texts)
        addString(text);
    return addListEnd();
}

HostResultBuffer& HostResultBuffer::addNestedList(HostResultBuffer list) {
    nodes_.push_back(Node{ResultType::nestedList, std::move(list)});
    return *this;
}

const HostResultBuffer::Node& HostResultBuffer::at(std::size_t index) const {
    if (index >= nodes_.size())
        throw std::invalid_argument("index outside the value chain");
    return nodes_[index];
}

const CString* HostResultBuffer::stringAt(std::size_t index) const noexcept {
    return index < nodes_.size() ? std::get_if<CString>(&nodes_[index].value) : nullptr;
}

const std::int16_t* HostResultBuffer::integerAt(std::size_t index) const noexcept {
    return index < nodes_.size() ? std::get_if<std::int16_t>(&nodes_[index].value) : nullptr;
}

} // namespace ryv
