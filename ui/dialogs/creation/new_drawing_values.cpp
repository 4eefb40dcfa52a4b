#include "ui/dialogs/creation/new_drawing_values.h"

#include "base/fold.h"

namespace ryv {

namespace {

constexpr std::array<CStringView, NewDrawingValues::count> names = {u"Drawing Description 1",
    u"Drawing Description 2", u"Drawing Description 3", u"Project Code", u"Installation Code",
    u"Location Code", u"Sheet", u"Drawing", u"Section", u"Sub-Section"};

constexpr bool isIndex(int index) {
    return index >= 0 && index < NewDrawingValues::count;
}

} // namespace

int NewDrawingValues::indexOf(CStringView name) {
    for (std::size_t i = 0; i < names.size(); ++i)
        if (equalNoCase(names[i], name))
            return static_cast<int>(i);
    return -1;
}

bool NewDrawingValues::setValue(int index, CStringView value) {
    if (isIndex(index))
        texts_[static_cast<std::size_t>(index)] = value;
    return isIndex(index);
}

bool NewDrawingValues::getValue(int index, CString& value) const {
    if (isIndex(index))
        value = texts_[static_cast<std::size_t>(index)];
    return isIndex(index);
}

} // namespace ryv
