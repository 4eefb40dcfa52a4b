// The registry hive of the current user: a tree of keys that hold named values.
#pragma once

#include "base/strings.h"

#include <cstdint>

namespace ryv {

/// How an operation on the registry ended.
enum class [[nodiscard]] RegistryStatus{
    ok,
    missing,   ///< no such key, or the key has no such value
    wrongType, ///< the value is there and is of another type
    denied,    ///< the user may not do this
    failed     ///< the hive cannot be read or written
};

/// A key is named by its path from the hive's root, "\" between components. Keys and values are found without
/// regard to case. A value that cannot be read leaves the output alone.
class Registry {
public:
    virtual ~Registry() = default;

    /// `ok` when the key is there and can be read.
    virtual RegistryStatus findKey(CStringView key) = 0;

    /// Makes a key and what is missing above it; `ok` too when it is there already.
    virtual RegistryStatus createKey(CStringView key) = 0;

    /// Plain strings only: one that holds environment references to be expanded is of the wrong type.
    virtual RegistryStatus readString(CStringView key, CStringView name, CString& value) = 0;
    virtual RegistryStatus readInteger(CStringView key, CStringView name, std::uint32_t& value) = 0;

    /// Sets a value, whatever type it had before; `missing` when there is no such key.
    virtual RegistryStatus writeString(CStringView key, CStringView name, CStringView value) = 0;
    virtual RegistryStatus writeInteger(CStringView key, CStringView name, std::uint32_t value) = 0;
};

/// An empty hive that nobody may write.
class NullRegistry final : public Registry {
public:
    RegistryStatus findKey(CStringView) override { return RegistryStatus::missing; }
    RegistryStatus createKey(CStringView) override { return RegistryStatus::denied; }
    RegistryStatus readString(CStringView, CStringView, CString&) override { return RegistryStatus::missing; }
    RegistryStatus readInteger(CStringView, CStringView, std::uint32_t&) override {
        return RegistryStatus::missing;
    }
    RegistryStatus writeString(CStringView, CStringView, CStringView) override {
        return RegistryStatus::missing;
    }
    RegistryStatus writeInteger(CStringView, CStringView, std::uint32_t) override {
        return RegistryStatus::missing;
    }
};

} // namespace ryv
