#include "embedded/documents/lisp_port.h"

#include <limits>

namespace drafta {

using ryv::HostResultBuffer;
using ryv::LispStatus;

void LispPort::connect(lisp::Interpreter& interpreter) {
    interpreter.setExternalHandler(
        [this](int code, const HostResultBuffer& arguments) { return run(code, arguments); });
}

lisp::ExternalResult LispPort::run(int code, const HostResultBuffer& arguments) {
    const auto hit = handlers_.find(code);
    if (hit == handlers_.end() || !hit->second)
        return {};
    const ryv::LispHandler handler = hit->second; // it may be dropped while it runs
    calls_.push_back({&arguments, {}});
    const std::size_t own = calls_.size() - 1;
    try {
        handler();
    } catch (...) {
        calls_.resize(own);
        throw;
    }
    lisp::ExternalResult result = std::move(calls_[own].result);
    calls_.resize(own);
    return result;
}

lisp::Interpreter* LispPort::interpreter() {
    Document* const document = documents_->current();
    return document && document->lisp ? &document->lisp->interpreter() : nullptr;
}

LispStatus LispPort::invoke(const HostResultBuffer& call, HostResultBuffer& result) {
    Document* const document = documents_->current();
    if (!document || !document->lisp)
        return LispStatus::noDocument;
    return document->lisp->invoke(call, result);
}

LispStatus LispPort::setSymbol(ryv::CStringView name, const HostResultBuffer& value) {
    lisp::Interpreter* const lisp = interpreter();
    return lisp ? lisp->setSymbol(name, value) : LispStatus::noDocument;
}

LispStatus LispPort::defineFunction(ryv::CStringView name, int code) {
    lisp::Interpreter* const lisp = interpreter();
    if (!lisp)
        return LispStatus::noDocument;
    if (name.empty())
        return LispStatus::failure;
    lisp->defineExternal(name, code);
    codes_.insert(code);
    return LispStatus::success;
}

LispStatus LispPort::registerHandler(int code, ryv::LispHandler handler) {
    if (!handler || !codes_.contains(code))
        return LispStatus::failure;
    handlers_[code] = std::move(handler);
    return LispStatus::success;
}

void LispPort::dropHandlers(const std::set<int>& codes) {
    for (const int code : codes) {
        handlers_.erase(code);
        codes_.erase(code);
    }
}

HostResultBuffer LispPort::getArgs() {
    return calls_.empty() ? HostResultBuffer() : *calls_.back().arguments;
}

void LispPort::give(HostResultBuffer chain, bool isList) {
    if (!calls_.empty())
        calls_.back().result = {std::move(chain), isList};
}

void LispPort::returnNil() {
    give({});
}

void LispPort::returnT() {
    give(HostResultBuffer().addTruth());
}

void LispPort::returnInt(int number) {
    using Short = std::numeric_limits<std::int16_t>;
    HostResultBuffer chain;
    if (number >= Short::min() && number <= Short::max())
        chain.addInteger(static_cast<std::int16_t>(number));
    else
        chain.addLongInteger(number);
    give(std::move(chain));
}

void LispPort::returnString(ryv::CStringView text) {
    give(HostResultBuffer().addString(text));
}

void LispPort::returnList(const HostResultBuffer& elements) {
    give(elements, true);
}

} // namespace drafta
