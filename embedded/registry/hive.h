// A registry hive in memory: keys that hold named values.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <map>
#include <variant>

namespace drafta {

/// Keys and values are found without regard to case and keep the spelling of whoever made them. A key is
/// there when it was made, or when one below it was; the root always is. Separators at the ends of a path and
/// doubled ones do not count.
class Hive {
public:
    using Value = std::variant<std::uint32_t, ryv::CString>;
    struct NamedValue {
        ryv::CString name;
        Value value;
    };
    struct Key {
        ryv::CString path;                         ///< from the root, as spelled
        std::map<ryv::CString, NamedValue> values; ///< by folded name
    };
    /// By folded path, so that equal hives are listed alike.
    using Keys = std::map<ryv::CString, Key>;

    bool hasKey(ryv::CStringView path) const;

    /// Makes a key and what is missing above it; the parents that are there lend it their spelling. False
    /// when it was there already.
    bool makeKey(ryv::CStringView path);

    /// The value of that name; null when the key or the value is missing. Valid until the hive changes.
    const Value* find(ryv::CStringView path, ryv::CStringView name) const;

    /// Sets a value of a key that is there. False when it had this very value already.
    bool set(ryv::CStringView path, ryv::CStringView name, Value value);

    /// The keys that were made or hold values; those that only stand above others may be left out.
    const Keys& keys() const noexcept { return keys_; }

private:
    Keys::const_iterator findAtOrBelow(const ryv::CString& folded) const;
    ryv::CString spelled(const ryv::CString& path) const;

    Keys keys_;
};

} // namespace drafta
