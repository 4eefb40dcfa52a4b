#include "embedded/os/path_mapper.h"
#include "base/encoding.h"
#include "base/fold.h"
#include "embedded/os/native_path.h"

#include <algorithm>
#include <vector>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::FileError;
using ryv::FileStatus;

namespace {

constexpr char16_t escapedBackslash = 0xDC5C;
constexpr FileStatus badName{FileError::badName, 0};

bool isSeparator(char16_t unit) {
    return unit == u'\\' || unit == u'/';
}

bool isDriveLetter(char16_t unit) {
    return ryv::toUpper(unit) >= u'A' && ryv::toUpper(unit) <= u'Z';
}

bool hasDrive(CStringView path) {
    return path.size() >= 2 && isDriveLetter(path[0]) && path[1] == u':';
}

bool isNetworkPath(CStringView path) {
    return path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]);
}

/// The next component of `rest`, which loses it; empty at the end.
CStringView takeComponent(CStringView& rest) {
    while (!rest.empty() && isSeparator(rest.front()))
        rest.remove_prefix(1);
    const auto end = std::find_if(rest.begin(), rest.end(), isSeparator);
    const CStringView component = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(component.size());
    return component;
}

/// Takes "\\server\share" off a network path and gives it folded, with single separators.
CString takeShare(CStringView& path) {
    const CString server = ryv::toUpper(takeComponent(path));
    const CString share = ryv::toUpper(takeComponent(path));
    return server.empty() || share.empty() ? CString() : u"\\\\" + server + u"\\" + share;
}

} // namespace

CString componentFromNative(std::string_view name) {
    CString text = ryv::nameFromBytes(name);
    std::replace(text.begin(), text.end(), u'\\', escapedBackslash);
    return text;
}

std::string componentToNative(CStringView component) {
    std::string bytes;
    for (;;) {
        // Behind a high surrogate the unit is half of a pair and no escape.
        std::size_t at = component.find(escapedBackslash);
        while (
            at != CStringView::npos && at != 0 && component[at - 1] >= 0xD800 && component[at - 1] <= 0xDBFF)
            at = component.find(escapedBackslash, at + 1);
        bytes += ryv::nameToBytes(component.substr(0, at));
        if (at == CStringView::npos)
            return bytes;
        bytes += '\\';
        component.remove_prefix(at + 1);
    }
}

/// A path in its parts: where it starts, natively, and the components from there, without "." and "..".
struct PathMapper::Split {
    std::string root;
    std::vector<CString> components;

    void add(CStringView rest) {
        for (CStringView component = takeComponent(rest); !component.empty();
             component = takeComponent(rest)) {
            if (component == u"..") {
                if (!components.empty())
                    components.pop_back();
            } else if (component != u".") {
                components.emplace_back(component);
            }
        }
    }
};

bool PathMapper::mapDrive(char16_t letter, std::string_view folder) {
    const std::string absolute = absoluteNative(folder);
    if (!isDriveLetter(letter) || absolute.empty())
        return false;
    roots_[CString{ryv::toUpper(letter), u':'}] = absolute;
    return true;
}

bool PathMapper::mapShare(CStringView root, std::string_view folder) {
    const std::string absolute = absoluteNative(folder);
    CStringView rest = root;
    const CString share = isNetworkPath(root) ? takeShare(rest) : CString();
    if (share.empty() || !takeComponent(rest).empty() || absolute.empty())
        return false;
    roots_[share] = absolute;
    return true;
}

FileStatus PathMapper::split(CStringView path, Split& result) const {
    if (path.empty() || path.find(u'\0') != CStringView::npos)
        return badName;
    const bool network = isNetworkPath(path);
    if (network || hasDrive(path)) {
        CStringView rest = network ? path : path.substr(2);
        const auto root = roots_.find(network ? takeShare(rest) : ryv::toUpper(path.substr(0, 2)));
        if (root == roots_.end())
            return {network ? FileError::badName : FileError::missing, 0};
        result.root = root->second;
        result.add(rest);
        return {};
    }
    result.root = "/";
    if (!isSeparator(path.front())) {
        const std::string current = currentNativeFolder();
        if (current.empty())
            return {FileError::missing, 0};
        for (const std::string_view component : nativeComponents(current))
            result.components.push_back(componentFromNative(component));
    }
    result.add(path);
    return {};
}

FileStatus PathMapper::toNativeAsSpelled(CStringView path, std::string& native) const {
    native.clear();
    Split parts;
    if (const FileStatus status = split(path, parts); !status.ok())
        return status;
    native = parts.root;
    for (const CString& component : parts.components)
        native = joinNative(native, componentToNative(component));
    return {};
}

FileStatus PathMapper::toNative(CStringView path, std::string& native) const {
    if (const FileStatus status = toNativeAsSpelled(path, native); !status.ok() || existsNative(native))
        return status;
    Split parts;
    if (const FileStatus status = split(path, parts); !status.ok())
        return status;
    native = parts.root;
    bool there = true;
    for (const CString& component : parts.components) {
        std::string next = joinNative(native, componentToNative(component));
        if (there && !existsNative(next)) {
            const std::string name = names_->find(native, component);
            there = !name.empty();
            if (there)
                next = joinNative(native, name);
        }
        native = std::move(next);
    }
    return {};
}

CString PathMapper::fromNative(std::string_view native) const {
    const std::string absolute = native.empty() ? std::string() : absoluteNative(native);
    if (absolute.empty())
        return {};
    CString text;
    for (const std::string_view component : nativeComponents(absolute))
        text.append(u"\\").append(componentFromNative(component));
    return text.empty() ? CString(u"\\") : text;
}

} // namespace drafta
