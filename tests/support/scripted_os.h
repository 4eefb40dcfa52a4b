// The smaller ports of the operating system: user and computer, environment, unique IDs, a registry in memory
// and a file monitor whose notices the test sends.
#pragma once

#include "base/fold.h"
#include "base/text.h"
#include "platform/os/environment.h"
#include "platform/os/file_monitor.h"
#include "platform/os/identity.h"
#include "platform/os/network.h"
#include "platform/os/registry.h"
#include "platform/os/unique_ids.h"

#include <algorithm>
#include <map>
#include <set>
#include <variant>
#include <vector>

namespace ryv::test {

class ScriptedIdentity final : public Identity {
public:
    CString user = u"ann";
    CString fullName;
    CString computer = u"DESK";
    CString userName() override { return user; }
    CString fullUserName() override { return fullName; }
    CString computerName() override { return computer; }
};

/// Counts the questions.
class ScriptedNetwork final : public Network {
public:
    std::vector<NetworkShare> used;
    std::vector<NetworkShare> own;
    std::map<CString, CString> longNames;
    int questions = 0;
    CStringArray computers() override {
        ++questions;
        std::set<CString> names;
        for (const NetworkShare& share : used)
            names.insert(share.computer);
        return CStringArray(names.begin(), names.end());
    }
    std::vector<NetworkShare> sharesOf(CStringView computer) override {
        ++questions;
        std::vector<NetworkShare> shares = used;
        std::erase_if(
            shares, [&](const NetworkShare& share) { return !equalNoCase(share.computer, computer); });
        return shares;
    }
    std::vector<NetworkShare> localShares() override {
        ++questions;
        return own;
    }
    CString longPathName(CStringView path) override {
        ++questions;
        const auto hit = longNames.find(CString(path));
        return hit == longNames.end() ? CString() : hit->second;
    }
};

class ScriptedEnvironment final : public Environment {
public:
    std::map<CString, CString> values;
    CString variable(CStringView name) override {
        const auto hit = values.find(CString(name));
        return hit == values.end() ? CString() : hit->second;
    }
};

/// Counts: "{00000000-0000-0000-0000-000000000001}" and so on.
class ScriptedUniqueIds final : public UniqueIds {
public:
    CString newGuid() override {
        const CString digits = toText(++count_);
        return u"{00000000-0000-0000-0000-" + CString(12 - digits.size(), u'0') + digits + u"}";
    }

private:
    int count_ = 0;
};

class ScriptedRegistry final : public Registry {
public:
    using Value = std::variant<std::uint32_t, CString>;

    /// The test's own hand: sets a value and makes its key.
    void put(CStringView key, CStringView name, Value value) {
        make(key);
        keys_[toUpper(key)][toUpper(name)] = std::move(value);
    }
    /// From now on nothing may be done with this very key.
    void deny(CStringView key) { denied_.insert(toUpper(key)); }
    /// The key's string value, or "(none)".
    CString string(CStringView key, CStringView name) {
        CString value = u"(none)";
        return readString(key, name, value) == RegistryStatus::ok ? value : CString(u"(none)");
    }

    RegistryStatus findKey(CStringView key) override {
        if (denied_.contains(toUpper(key)))
            return RegistryStatus::denied;
        return keys_.contains(toUpper(key)) ? RegistryStatus::ok : RegistryStatus::missing;
    }
    RegistryStatus createKey(CStringView key) override {
        if (findKey(key) == RegistryStatus::missing)
            make(key);
        return findKey(key);
    }
    RegistryStatus readString(CStringView key, CStringView name, CString& value) override {
        return read(key, name, value);
    }
    RegistryStatus readInteger(CStringView key, CStringView name, std::uint32_t& value) override {
        return read(key, name, value);
    }
    RegistryStatus writeString(CStringView key, CStringView name, CStringView value) override {
        return write(key, name, CString(value));
    }
    RegistryStatus writeInteger(CStringView key, CStringView name, std::uint32_t value) override {
        return write(key, name, value);
    }

private:
    void make(CStringView key) {
        const CString folded = toUpper(key);
        for (std::size_t end = 0; end < folded.size(); ++end) {
            end = findUnit(folded, u'\\', end);
            keys_[folded.substr(0, end)];
        }
    }
    template <class T>
    RegistryStatus read(CStringView key, CStringView name, T& value) {
        const RegistryStatus status = findKey(key);
        if (status != RegistryStatus::ok)
            return status;
        const auto& values = keys_[toUpper(key)];
        const auto hit = values.find(toUpper(name));
        if (hit == values.end())
            return RegistryStatus::missing;
        const T* const typed = std::get_if<T>(&hit->second);
        if (typed)
            value = *typed;
        return typed ? RegistryStatus::ok : RegistryStatus::wrongType;
    }
    RegistryStatus write(CStringView key, CStringView name, Value value) {
        const RegistryStatus status = findKey(key);
        if (status == RegistryStatus::ok)
            keys_[toUpper(key)][toUpper(name)] = std::move(value);
        return status;
    }

    std::map<CString, std::map<CString, Value>> keys_;
    std::set<CString> denied_;
};

class ScriptedFileMonitor final : public FileMonitor {
public:
    FileStatus startResult; ///< what the next start() gives
    FileStatus watchResult; ///< what watch() gives
    std::vector<CString> watched;

    /// Sends a notice as the service would: only while it runs, and of watched files only. Whether it did.
    bool notify(CStringView path, FileChange change) {
        const auto hit = find(path);
        if (!receiver_ || hit == watched.end())
            return false;
        receiver_->fileChanged(CString(*hit), change);
        return true;
    }
    bool notifyRename(CStringView oldPath, CStringView newPath) {
        const bool due = receiver_ && (find(oldPath) != watched.end() || find(newPath) != watched.end());
        if (due)
            receiver_->fileRenamed(oldPath, newPath);
        return due;
    }

    FileStatus start(FileMonitorReceiver& receiver) override {
        if (receiver_)
            return {FileError::busy, 0};
        receiver_ = startResult.ok() ? &receiver : nullptr;
        return startResult;
    }
    void stop() override { receiver_ = nullptr; }
    bool isRunning() override { return receiver_ != nullptr; }
    FileStatus watch(CStringView path) override {
        if (watchResult.ok() && find(path) == watched.end())
            watched.emplace_back(path);
        return watchResult;
    }
    bool unwatch(CStringView path) override {
        const auto hit = find(path);
        const bool found = hit != watched.end();
        if (found)
            watched.erase(hit);
        return found;
    }

private:
    std::vector<CString>::iterator find(CStringView path) {
        return std::find_if(
            watched.begin(), watched.end(), [path](const CString& each) { return equalNoCase(each, path); });
    }
    FileMonitorReceiver* receiver_ = nullptr;
};

} // namespace ryv::test
