#include "toolkit/text_field.h"

namespace ryv {

bool TextField::accepts(CStringView text) const {
    const bool fits = maxLength_ == 0 || text.size() <= maxLength_;
    const bool onItsLines = multiLine_ || text.find(u'\n') == CStringView::npos;
    return fits && onItsLines && (!rule_ || rule_(text));
}

bool TextField::type(CString text) {
    if (!isUsable() || readOnly_ || !accepts(text))
        return false;
    edit(text_, std::move(text));
    return true;
}

} // namespace ryv
