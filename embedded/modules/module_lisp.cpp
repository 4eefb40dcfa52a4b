#include "embedded/modules/module_lisp.h"

#include <utility>

namespace drafta {

ryv::LispStatus ModuleLisp::defineFunction(ryv::CStringView name, int code) {
    const auto known = codes_.find(code);
    const int own = known != codes_.end() ? known->second : host_.newCode();
    const ryv::LispStatus status = lisp_.defineFunction(name, own);
    if (status == ryv::LispStatus::success) {
        codes_[code] = own;
        names_.emplace(name);
    }
    return status;
}

ryv::LispStatus ModuleLisp::registerHandler(int code, ryv::LispHandler handler) {
    const auto known = codes_.find(code);
    return known != codes_.end() ? lisp_.registerHandler(known->second, std::move(handler))
                                 : ryv::LispStatus::failure;
}

void ModuleLisp::drop() {
    std::set<int> codes;
    for (const auto& [own, code] : std::exchange(codes_, {}))
        codes.insert(code);
    host_.dropFunctions(codes, std::exchange(names_, {}));
}

} // namespace drafta
