#include "siblings/misc_proj_settings.h"

#include "base/text.h"

namespace ryv {

namespace {
bool isBracketIndex(int index) {
    return index >= 1 && index <= RyvPmMiscProjSettings::getMaxBracketIndex();
}
} // namespace

RyvPmMiscProjSettings::Status RyvPmMiscProjSettings::getValue(int index, CString& value) const {
    if (!isBracketIndex(index))
        return Status::badIndex;
    const auto hit = values_.find(index);
    if (hit == values_.end())
        return Status::absent;
    value = hit->second;
    return Status::present;
}

int RyvPmMiscProjSettings::getInteger(int index) const {
    CString value;
    return getValue(index, value) == Status::present ? leadingInteger(value) : 0;
}

RyvPmMiscProjSettings::Status RyvPmMiscProjSettings::setValue(int index, const CString* value) {
    if (!isBracketIndex(index))
        return Status::badIndex;
    if (value)
        values_.insert_or_assign(index, *value);
    else
        values_.erase(index);
    return Status::present;
}

} // namespace ryv
