#include "toolkit/layout.h"

namespace ryv {

CString resolve(const LayoutText& text, TextSource texts) {
    const CStringView found = text.number != 0 && texts ? texts(text.number) : CStringView();
    return CString(found.empty() ? text.text : found);
}

} // namespace ryv
