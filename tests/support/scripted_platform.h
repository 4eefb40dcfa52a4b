// A platform whose host answers what a test has written down, and which remembers what it was asked.
#pragma once

#include "bridge/platform.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace ryv::test {

/// A LISP that knows the functions it was given. A function that it was not given fails.
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

    LispStatus invoke(const HostResultBuffer& call, HostResultBuffer& result) override {
        std::vector<CString> texts;
        for (std::size_t i = 0; i < call.size(); ++i)
            if (const CString* const text = call.stringAt(i))
                texts.push_back(*text);
        calls_.push_back(texts);
        const auto hit = functions_.find(texts.empty() ? CString() : texts[0]);
        return hit == functions_.end() ? LispStatus::failure : hit->second(call, result);
    }

private:
    std::map<CString, Function> functions_;
    std::map<CString, HostResultBuffer> variables_;
    std::vector<std::vector<CString>> calls_;
};

class ScriptedDocuments final : public NullHostDocuments {
public:
    bool open = false;
    bool hasCurrentDocument() override { return open; }
};

/// Replaces "${NAME}" by the value of NAME.
class ScriptedVariables final : public GlobalVariables {
public:
    std::map<CString, CString> values;
    CString Gbl_ReplaceGblVars(CStringView text) override {
        CString result(text);
        for (const auto& [name, value] : values)
            for (std::size_t hit; (hit = result.find(u"${" + name + u"}")) != CString::npos;)
                result.replace(hit, name.size() + 3, value);
        return result;
    }
};

/// Installed for as long as it lives; no document is open at first.
class ScriptedPlatform {
public:
    explicit ScriptedPlatform(Files* files = nullptr) {
        ports_.host.lisp = &lisp;
        ports_.host.documents = &documents;
        ports_.services.globalVariables = &variables;
        if (files)
            ports_.os.files = files;
        setPlatform(&ports_);
    }
    ScriptedPlatform(const ScriptedPlatform&) = delete;
    ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;
    ~ScriptedPlatform() { setPlatform(nullptr); }

    ScriptedLisp lisp;
    ScriptedDocuments documents;
    ScriptedVariables variables;

private:
    Platform ports_;
};

} // namespace ryv::test
