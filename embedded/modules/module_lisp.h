// The host's LISP as one module has it.
#pragma once

#include "embedded/modules/seat_host.h"
#include "platform/host/lisp.h"

#include <map>

namespace drafta {

/// Codes are the module's own numbers here, and behind it numbers that no other module has.
class ModuleLisp final : public ryv::HostLisp {
public:
    ModuleLisp(ryv::HostLisp& lisp, SeatHost& host) noexcept : lisp_(lisp), host_(host) {}

    /// Takes back the functions that were defined, with their handlers.
    void drop();

    ryv::LispStatus invoke(const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result) override {
        return lisp_.invoke(call, result);
    }
    ryv::CString exposeFunctionFormat() override { return lisp_.exposeFunctionFormat(); }
    ryv::LispStatus setSymbol(ryv::CStringView name, const ryv::HostResultBuffer& value) override {
        return lisp_.setSymbol(name, value);
    }
    ryv::LispStatus defineFunction(ryv::CStringView name, int code) override;
    ryv::LispStatus registerHandler(int code, ryv::LispHandler handler) override;
    ryv::HostResultBuffer getArgs() override { return lisp_.getArgs(); }
    void returnNil() override { lisp_.returnNil(); }
    void returnT() override { lisp_.returnT(); }
    void returnInt(int number) override { lisp_.returnInt(number); }
    void returnString(ryv::CStringView text) override { lisp_.returnString(text); }
    void returnList(const ryv::HostResultBuffer& elements) override { lisp_.returnList(elements); }

private:
    ryv::HostLisp& lisp_;
    SeatHost& host_;
    std::map<int, int> codes_; // the module's to the host's
    std::set<ryv::CString> names_;
};

} // namespace drafta
