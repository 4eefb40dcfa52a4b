// The host's LISP as the module sees it: the one of the current document.
#pragma once

#include "embedded/documents/documents.h"
#include "platform/host/lisp.h"

#include <map>
#include <set>
#include <vector>

namespace drafta {

class LispPort final : public ryv::HostLisp {
public:
    /// The documents outlive the port, and so do the LISP sessions that it is connected to.
    explicit LispPort(Documents& documents) noexcept : documents_(&documents) {}

    /// Makes the module's functions of a document's LISP reach their handlers here.
    void connect(lisp::Interpreter& interpreter);

    /// Forgets the handlers of a module that goes; its functions give nil from then on.
    void dropHandlers(const std::set<int>& codes);

    ryv::LispStatus invoke(const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result) override;
    ryv::CString exposeFunctionFormat() override { return u"(expose-function '%s)"; }
    ryv::LispStatus setSymbol(ryv::CStringView name, const ryv::HostResultBuffer& value) override;
    ryv::LispStatus defineFunction(ryv::CStringView name, int code) override;
    ryv::LispStatus registerHandler(int code, ryv::LispHandler handler) override;
    ryv::HostResultBuffer getArgs() override;
    void returnNil() override;
    void returnT() override;
    void returnInt(int number) override;
    void returnString(ryv::CStringView text) override;
    void returnList(const ryv::HostResultBuffer& elements) override;

private:
    /// A handler at work.
    struct Call {
        const ryv::HostResultBuffer* arguments;
        lisp::ExternalResult result;
    };

    lisp::ExternalResult run(int code, const ryv::HostResultBuffer& arguments);
    lisp::Interpreter* interpreter();
    void give(ryv::HostResultBuffer chain, bool isList = false);

    Documents* documents_;
    std::map<int, ryv::LispHandler> handlers_;
    std::set<int> codes_;     // defined so far
    std::vector<Call> calls_; // the innermost last
};

} // namespace drafta
