#include "base/paths.h"

#include "base/fold.h"
#include "base/text.h"

#include <algorithm>

namespace ryv::paths {

namespace {

constexpr char16_t separator = u'\\';

bool isNetwork(CStringView path) noexcept {
    return path.starts_with(u"\\\\");
}

bool hasSeparatorAt(CStringView path, std::size_t index) noexcept {
    return index < path.size() && path[index] == separator;
}

/// Where the component that begins at `from` ends; `from` may lie behind the end of the path.
std::size_t componentEnd(CStringView path, std::size_t from) noexcept {
    return findUnit(path, separator, from);
}

/// A drive with its colon has 2 units, any other path has no drive. Whatever stands before the colon is its
/// letter.
std::size_t driveLength(CStringView path) noexcept {
    return path.size() >= 2 && path[1] == u':' && path[0] != separator ? 2 : 0;
}

/// What stands before the root's separator: a drive, or the server and share of a network path, or nothing.
std::size_t volumeLength(CStringView path) noexcept {
    return isNetwork(path) ? componentEnd(path, componentEnd(path, 2) + 1) : driveLength(path);
}

/// The volume together with the separator behind it, if there is one.
std::size_t rootLength(CStringView path) noexcept {
    const std::size_t volume = volumeLength(path);
    return volume + (hasSeparatorAt(path, volume) ? 1 : 0);
}

/// The length of the folder that holds the last component. A share stands without a separator at its end.
std::size_t folderLength(CStringView path) noexcept {
    const std::size_t root = isNetwork(path) ? volumeLength(path) : rootLength(path);
    const std::size_t last = path.rfind(separator);
    return last == CStringView::npos ? root : std::max(root, last);
}

/// The length of the first `length` units without their last component, but never less than `floor`.
std::size_t parentLength(CStringView path, std::size_t length, std::size_t floor) noexcept {
    while (length > floor)
        if (path[--length] == separator)
            break;
    return length;
}

/// Moves the units from `from` to `end` down to `to`, and returns the place behind them.
std::size_t moveDown(CString& path, std::size_t from, std::size_t end, std::size_t to) noexcept {
    if (from != to)
        CString::traits_type::move(path.data() + to, path.data() + from, end - from);
    return to + (end - from);
}

bool isDots(CStringView component) noexcept {
    return component == u"." || component == u"..";
}

/// True when a component of `path` is "." or "..". Most paths have few full stops, and none behind a
/// separator.
bool hasDots(CStringView path) noexcept {
    for (std::size_t dot = findUnit(path, u'.'); dot < path.size(); dot = findUnit(path, u'.', dot + 1))
        if ((dot == 0 || path[dot - 1] == separator) &&
            isDots(path.substr(dot, componentEnd(path, dot + 1) - dot)))
            return true;
    return false;
}

/// Folds "." and ".." behind the first `floor` units, which no ".." takes away. A component goes together
/// with the separator in front of it, so that ".." behind the first component of a relative path leaves a
/// rooted one.
void foldDots(CString& path, std::size_t floor) {
    std::size_t written = floor;
    for (std::size_t read = floor; read < path.size();) {
        const std::size_t start = read;
        const std::size_t name = start + (path[start] == separator ? 1 : 0);
        read = componentEnd(path, name);
        const CStringView component = CStringView(path).substr(name, read - name);
        if (component == u"..")
            written = parentLength(path, written, floor);
        else if (component != u".")
            written = moveDown(path, start, read, written);
        else if (name == start && read < path.size())
            ++read; // ".\x" is "x"
    }
    path.resize(written);
}

/// The form in which combine and append give a path: folded, and a root with its separator.
void canonicalize(CString& path) {
    const std::size_t floor = isNetwork(path) ? componentEnd(path, 2) : driveLength(path);
    if (hasDots(CStringView(path).substr(floor)))
        foldDots(path, floor);
    if (path.empty() || (path.size() == 2 && driveLength(path) == 2))
        path += separator;
}

/// True when fullPathName leaves what stands behind a root as it is. Some paths that stay unchanged are
/// denied.
bool isPlain(CStringView tail) noexcept {
    char16_t previous = separator;
    for (const char16_t unit : tail) {
        if (unit == separator && (previous == separator || previous == u'.'))
            return false;
        previous = unit;
    }
    return previous != u'.' && previous != u' ';
}

/// Where a component that is not the last one ends without its full stop. One of several is left, so that the
/// component cannot turn into ".." by losing it.
std::size_t endWithoutStop(CStringView path, std::size_t start, std::size_t end) noexcept {
    const bool one = end - start >= 2 && path[end - 1] == u'.' && path[end - 2] != u'.';
    return one ? end - 1 : end;
}

/// Folds an absolute path behind its root, and returns its new length. Every component is written at or
/// before the place that it is read from.
std::size_t foldFully(CString& path, std::size_t root) noexcept {
    std::size_t written = root;
    bool open = false; // the path ends with a separator
    for (std::size_t read = root, end = 0; read <= path.size(); read = end + 1) {
        end = componentEnd(path, read);
        const CStringView component = CStringView(path).substr(read, end - read);
        open = component.empty();
        if (component == u"..") {
            written = parentLength(path, written, root);
        } else if (!open && component != u".") {
            const std::size_t nameEnd = endWithoutStop(path, read, end);
            if (written > root)
                path[written++] = separator;
            written = moveDown(path, read, nameEnd, written);
        }
    }
    if (open && written > root)
        path[written++] = separator;
    while (written > root && (path[written - 1] == u'.' || path[written - 1] == u' '))
        --written;
    return written;
}

/// What two paths need to share so that one has a path relative to the other.
struct Root {
    CStringView volume;
    bool rooted = false;

    explicit Root(CStringView path)
        : volume(path.substr(0, volumeLength(path))),
          rooted(isNetwork(path) || hasSeparatorAt(path, volume.size())) {}
    bool exists() const noexcept { return rooted || !volume.empty(); }
    bool equals(const Root& other) const noexcept {
        return rooted == other.rooted && equalNoCase(volume, other.volume);
    }
};

/// How many units at the start of two paths are common components with the separators behind them; a
/// separator at the end of a path is there without being written.
std::size_t commonLength(CStringView a, CStringView b) noexcept {
    std::size_t common = 0;
    for (std::size_t i = 0;; ++i) {
        const bool aEnds = i == a.size() || a[i] == separator;
        const bool bEnds = i == b.size() || b[i] == separator;
        if (aEnds && bEnds)
            common = i + 1;
        if (i == a.size() || i == b.size() || (a[i] != b[i] && toUpper(a[i]) != toUpper(b[i])))
            return common;
    }
}

CStringView dropPrefix(CStringView text, std::size_t length) noexcept {
    return text.substr(std::min(length, text.size()));
}

} // namespace

bool isRelative(CStringView path) noexcept {
    return !hasSeparatorAt(path, 0) && driveLength(path) == 0;
}

bool combineInto(CString& result, CStringView folder, CStringView file) {
    if (!isRelative(file))
        folder = hasSeparatorAt(file, 0) && !isNetwork(file) ? folder.substr(0, volumeLength(folder))
                                                             : CStringView();
    const bool joined =
        folder.empty() || file.empty() || folder.back() == separator || file.front() == separator;
    const std::size_t length = folder.size() + (joined ? 0 : 1) + file.size();
    if (length > maxLength)
        return false;
    result.clear();
    result.reserve(length + 1);
    result.append(folder);
    if (!joined)
        result += separator;
    canonicalize(result.append(file));
    return true;
}

std::optional<CString> combine(CStringView folder, CStringView file) {
    std::optional<CString> result(std::in_place);
    if (!combineInto(*result, folder, file))
        result.reset();
    return result;
}

std::optional<CString> append(CStringView path, CStringView more) {
    if (!isNetwork(more) && hasSeparatorAt(more, 0))
        more.remove_prefix(1);
    return combine(path, more);
}

std::optional<CString> relativePathTo(CStringView fromFolder, CStringView toFile) {
    const Root root(fromFolder);
    if (!root.exists() || !root.equals(Root(toFile)))
        return std::nullopt;
    CStringView from = dropPrefix(fromFolder, rootLength(fromFolder));
    const CStringView to = dropPrefix(toFile, rootLength(toFile));
    if (from.ends_with(separator))
        from.remove_suffix(1);
    const std::size_t common = commonLength(from, to);
    const CStringView up = dropPrefix(from, common);
    const CStringView down = dropPrefix(to, common);
    const auto steps =
        up.empty() ? 0 : static_cast<std::size_t>(std::count(up.begin(), up.end(), separator)) + 1;
    if (3 * steps + down.size() > maxLength + 1)
        return std::nullopt;
    CString result;
    result.reserve(3 * steps + down.size() + 2);
    for (std::size_t i = 0; i < steps; ++i)
        result += u"..\\";
    if (steps == 0)
        result += u".\\";
    result += down;
    if (down.empty())
        result.pop_back();
    return result.size() > maxLength ? std::nullopt : std::optional(std::move(result));
}

bool removeFileSpec(CString& path) {
    const std::size_t length = folderLength(path);
    const bool removed = length < path.size();
    path.resize(length);
    return removed;
}

CStringView findFileName(CStringView path) noexcept {
    const auto separates = [](char16_t unit) { return unit == separator || unit == u'/' || unit == u':'; };
    for (std::size_t i = path.size(); i-- > 1;)
        if (separates(path[i - 1]) && path[i] != separator && path[i] != u'/')
            return path.substr(i);
    return path;
}

CStringView findExtension(CStringView path) noexcept {
    const std::size_t last = path.find_last_of(u".\\ ");
    return last == CStringView::npos || path[last] != u'.' ? CStringView() : path.substr(last);
}

CString removeExtension(CStringView path) {
    return CString(path.substr(0, path.size() - findExtension(path).size()));
}

std::optional<CString> renameExtension(CStringView path, CStringView extension) {
    const CStringView stem = path.substr(0, path.size() - findExtension(path).size());
    if (stem.size() + extension.size() > maxLength)
        return std::nullopt;
    std::optional<CString> result(std::in_place);
    result->reserve(stem.size() + extension.size());
    result->append(stem).append(extension);
    return result;
}

CString fullPathName(CStringView path) {
    CString result(path);
    std::replace(result.begin(), result.end(), u'/', separator);
    const std::size_t root = rootLength(result);
    if (!isPlain(CStringView(result).substr(root)))
        result.resize(foldFully(result, root));
    return result;
}

CString folderOf(CStringView path) {
    return CString(path.substr(0, folderLength(path)));
}

CString titleOf(CStringView path) {
    CStringView name = path.substr(folderLength(path));
    if (hasSeparatorAt(name, 0))
        name.remove_prefix(1);
    return removeExtension(name);
}

} // namespace ryv::paths
