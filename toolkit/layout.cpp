#include "toolkit/layout.h"

namespace ryv {

CString resolve(const LayoutText& text, TextSource texts) {
    if (text.number != 0 && texts)
        return CString(texts(text.number));
    return CString(text.text);
}

} // namespace ryv
