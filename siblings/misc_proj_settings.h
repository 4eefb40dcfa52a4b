// The miscellaneous settings of a project: texts addressed by the number that stands in the brackets of a
// "+[n]" line.
#pragma once

#include "base/export.h"
#include "base/strings.h"

#include <map>

namespace ryv {

class RYV_EXPORT RyvPmMiscProjSettings {
public:
    enum class Status {
        present = 1, ///< done, or the value is there
        absent = 2,  ///< there is no value
        badIndex = 3 ///< the index is below 1 or above getMaxBracketIndex()
    };

    /// The largest index that a project file may use; the smallest is 1.
    static constexpr int getMaxBracketIndex() noexcept { return 255; }

    /// Copies a present value and reports `present`; otherwise `value` is left alone.
    Status getValue(int index, CString& value) const;

    /// The value as a number, read as leadingInteger() reads it; 0 when absent.
    int getInteger(int index) const;

    /// Stores a value, or makes it absent when `value` is null.
    Status setValue(int index, const CString* value);

    /// The values that are present, in ascending order of their index.
    const std::map<int, CString>& values() const noexcept { return values_; }

    /// Exact comparison of which values are present and of their texts.
    bool operator==(const RyvPmMiscProjSettings& other) const = default;

private:
    std::map<int, CString> values_;
};

} // namespace ryv
