#include "embedded/lisp/value.h"

#include "embedded/lisp/lisp_file.h"
#include "embedded/lisp/object.h"

namespace drafta::lisp {

Kind Value::kind() const noexcept {
    if (isNil())
        return Kind::nil;
    if (isNumber())
        return isInteger() ? Kind::integer : Kind::real;
    return isCons() ? Kind::cons : object()->kind;
}

ryv::CStringView Value::text() const noexcept {
    switch (kind()) {
    case Kind::string:
        return static_cast<const Text*>(object())->text;
    case Kind::symbol:
        return asSymbol(*this)->name;
    case Kind::opaque:
        return static_cast<const Opaque*>(object())->type->name;
    default:
        return {};
    }
}

std::uint64_t Value::opaqueId() const noexcept {
    return kind() == Kind::opaque ? static_cast<const Opaque*>(object())->id : 0;
}

File::File(std::unique_ptr<LispFile> opened) : Object(Kind::file), file(std::move(opened)) {}

File::~File() = default;

} // namespace drafta::lisp
