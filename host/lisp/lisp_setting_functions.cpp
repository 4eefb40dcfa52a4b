#include "host/lisp/lisp_setting_functions.h"

#include "bridge/platform.h"
#include "manager/nav_state.h"

namespace ryv::lisp_functions {

LispAnswer getElecRegSetting(const LispValues& arguments) {
    const CString* const first = arguments.string(0);
    const CString* const second = arguments.string(1);
    if (!first || !second)
        return LispAnswer::wrong();
    CString value;
    const bool read = platform().services.settings->RyvGetRegSetting(*first, *second, value);
    return read ? LispAnswer::text(std::move(value)) : LispAnswer::nil();
}

LispAnswer setElecRegSetting(const LispValues& arguments) {
    const CString* const first = arguments.string(0);
    const CString* const second = arguments.string(1);
    const CString* const value = arguments.string(2);
    if (!first || !second || !value)
        return LispAnswer::wrong();
    return LispAnswer::truth(platform().services.settings->RyvSetRegSetting(*first, *second, *value));
}

LispAnswer beginWaitCursor(const LispValues&) {
    return LispAnswer::truth(platform().services.waitCursor->RyvBeginWaitCursor());
}

LispAnswer endWaitCursor(const LispValues&) {
    platform().services.waitCursor->RyvEndWaitCursor();
    return LispAnswer::nil();
}

LispAnswer temporaryDrawing(const LispValues&) {
    const NavState* const state = navState();
    return state ? LispAnswer::text(state->temporaryDrawing) : LispAnswer::wrong();
}

} // namespace ryv::lisp_functions
