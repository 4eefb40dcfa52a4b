// A LISP that answers what a test has written down, remembers what it was asked, and calls the module's
// functions as LISP code would.
#pragma once

#include "platform/host/lisp.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace ryv::test {

/// What a call of a module's function came to.
struct LispReply {
    int status = 0; ///< what the handler gave; 0 when there is no such function or it has no handler
    HostResultBuffer value = HostResultBuffer().addNil(); ///< of a list its elements, see `isList`
    bool isList = false;
};

/// Knows the functions it was given. A function that it was not given fails.
class ScriptedLisp final : public NullHostLisp {
public:
    using Function = std::function<LispStatus(const HostResultBuffer& call, HostResultBuffer& result)>;

    void define(CStringView name, Function function) { functions_[CString(name)] = std::move(function); }
    void answer(CStringView name, HostResultBuffer result) {
        define(name, [result](const HostResultBuffer&, HostResultBuffer& out) {
            out = result;
            return LispStatus::success;
        });
    }
    void fail(CStringView name) {
        define(name, [](const HostResultBuffer&, HostResultBuffer&) { return LispStatus::failure; });
    }

    /// Values that "ryv_get_var" gives for a variable's name; nil for others.
    void setVariable(CStringView name, HostResultBuffer value) {
        variables_[CString(name)] = std::move(value);
        define(u"ryv_get_var", [this](const HostResultBuffer& call, HostResultBuffer& out) {
            const CString* const wanted = call.stringAt(1);
            const auto hit = wanted ? variables_.find(*wanted) : variables_.end();
            out = hit == variables_.end() ? HostResultBuffer().addNil() : hit->second;
            return LispStatus::success;
        });
    }

    /// The texts of each call so far, in order: the function, then its string arguments.
    const std::vector<std::vector<CString>>& calls() const noexcept { return calls_; }
    /// The same calls with all their arguments.
    const std::vector<HostResultBuffer>& chains() const noexcept { return chains_; }
    /// The symbols that were set, by name.
    std::map<CString, HostResultBuffer> symbols;
    /// The functions of the module in the order of defining: name and code.
    std::vector<std::pair<CString, int>> defined;
    /// Names that defineFunction() refuses.
    std::vector<CString> refused;

    /// Calls a function of the module.
    LispReply call(CStringView name, HostResultBuffer arguments = {}) {
        const auto known = std::find_if(
            defined.begin(), defined.end(), [name](const auto& each) { return each.first == name; });
        const auto handler = known == defined.end() ? handlers_.end() : handlers_.find(known->second);
        if (handler == handlers_.end())
            return {};
        const HostResultBuffer outerArguments = std::exchange(arguments_, std::move(arguments));
        const LispReply outerReply = std::exchange(reply_, LispReply());
        const int status = handler->second();
        LispReply reply = std::exchange(reply_, outerReply);
        reply.status = status;
        arguments_ = outerArguments;
        return reply;
    }

    LispStatus invoke(const HostResultBuffer& call, HostResultBuffer& result) override {
        std::vector<CString> texts;
        for (std::size_t i = 0; i < call.size(); ++i)
            if (const CString* const text = call.stringAt(i))
                texts.push_back(*text);
        calls_.push_back(texts);
        chains_.push_back(call);
        const auto hit = functions_.find(texts.empty() ? CString() : texts[0]);
        return hit == functions_.end() ? LispStatus::failure : hit->second(call, result);
    }
    LispStatus setSymbol(CStringView name, const HostResultBuffer& value) override {
        symbols[CString(name)] = value;
        return LispStatus::success;
    }
    LispStatus defineFunction(CStringView name, int code) override {
        if (std::find(refused.begin(), refused.end(), name) != refused.end())
            return LispStatus::failure;
        defined.emplace_back(name, code);
        return LispStatus::success;
    }
    LispStatus registerHandler(int code, LispHandler handler) override {
        handlers_[code] = std::move(handler);
        return LispStatus::success;
    }
    HostResultBuffer getArgs() override { return arguments_; }
    void returnNil() override { reply_ = {}; }
    void returnT() override { reply_ = {0, HostResultBuffer().addTruth(), false}; }
    void returnInt(int number) override {
        const auto narrow = static_cast<std::int16_t>(number);
        HostResultBuffer value;
        reply_ = {0, narrow == number ? value.addInteger(narrow) : value.addLongInteger(number), false};
    }
    void returnString(CStringView text) override { reply_ = {0, HostResultBuffer().addString(text), false}; }
    void returnList(const HostResultBuffer& elements) override { reply_ = {0, elements, true}; }

private:
    std::map<CString, Function> functions_;
    std::map<CString, HostResultBuffer> variables_;
    std::vector<std::vector<CString>> calls_;
    std::vector<HostResultBuffer> chains_;
    std::map<int, LispHandler> handlers_;
    HostResultBuffer arguments_;
    LispReply reply_;
};

} // namespace ryv::test
