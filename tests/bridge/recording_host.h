// A host that gives one prepared answer to every LISP call and writes down all that it is asked, in one line
// each.
#pragma once

#include "bridge/platform.h"
#include "tests/support/text.h"

#include <utility>

namespace ryv::test {

/// A chain in one line: strings in quotes, list marks as parentheses, a nested list in braces.
inline std::string written(const HostResultBuffer& chain) {
    std::string line;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        const HostResultBuffer::Node& node = chain.at(i);
        line += i == 0 ? "" : " ";
        if (node.type == ResultType::string)
            line += shown(std::get<CString>(node.value));
        else if (node.type == ResultType::integer)
            line += std::to_string(std::get<std::int16_t>(node.value));
        else if (node.type == ResultType::real)
            line += std::to_string(std::get<double>(node.value)).substr(0, 4);
        else if (node.type == ResultType::nestedList)
            line += "{" + written(std::get<HostResultBuffer>(node.value)) + "}";
        else
            line += node.type == ResultType::listBegin ? "("
                    : node.type == ResultType::listEnd ? ")"
                    : node.type == ResultType::nil     ? "nil"
                    : node.type == ResultType::truth   ? "T"
                                                       : "?";
    }
    return line;
}

class RecordingLisp final : public NullHostLisp {
public:
    LispStatus status = LispStatus::success;
    HostResultBuffer reply;
    CString exposeFormat = u"(expose '%s)";
    std::vector<std::string> calls;
    std::function<void()> duringCall;

    LispStatus invoke(const HostResultBuffer& call, HostResultBuffer& result) override {
        calls.push_back(written(call));
        if (duringCall)
            duringCall();
        result = reply;
        return status;
    }
    CString exposeFunctionFormat() override { return exposeFormat; }
    LispStatus setSymbol(CStringView name, const HostResultBuffer& value) override {
        calls.push_back(toAscii(name) + " = " + written(value));
        return status;
    }
};

class RecordingDocuments final : public NullHostDocuments {
public:
    DocumentId current{7};
    bool quiescent = true;
    std::vector<std::string> sent; ///< document, options that are on, text
    std::vector<std::function<void()>> handedOver;

    bool hasCurrentDocument() override { return current != DocumentId::none; }
    DocumentId currentDocument() override { return current; }
    bool isQuiescent(DocumentId document) override { return document == current && quiescent; }
    void sendStringToExecute(DocumentId document, CStringView text, CommandStringOptions options) override {
        sent.push_back(std::to_string(static_cast<int>(document)) + (options.activate ? " activate" : "") +
                       (options.wrapUpInactive ? " wrap-up" : "") + (options.echo ? " echo " : " ") +
                       shown(text));
    }
    void executeInApplicationContext(std::function<void()> work) override {
        handedOver.push_back(std::move(work));
    }
};

/// Installed for as long as it lives; a document is current at first.
class RecordingHost {
public:
    RecordingHost() {
        ports.host.lisp = &lisp;
        ports.host.documents = &documents;
        setPlatform(&ports);
    }
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;
    ~RecordingHost() { setPlatform(nullptr); }

    RecordingLisp lisp;
    RecordingDocuments documents;
    Platform ports;
};

} // namespace ryv::test
