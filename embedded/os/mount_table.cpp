#include "embedded/os/mount_table.h"

#include <algorithm>
#include <optional>

namespace drafta {

namespace {

bool isOctal(char digit) {
    return digit >= '0' && digit <= '7';
}

std::vector<std::string_view> words(std::string_view line) {
    std::vector<std::string_view> found;
    while (!line.empty()) {
        const std::size_t end = std::min(line.find(' '), line.size());
        if (end > 0)
            found.push_back(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return found;
}

std::string trimmed(std::string_view path) {
    while (path.starts_with('/'))
        path.remove_prefix(1);
    while (path.ends_with('/'))
        path.remove_suffix(1);
    return std::string(path);
}

struct Source {
    std::string computer;
    std::string share;
};

/// "//server/share/folder"
std::optional<Source> windowsShare(const std::string& source) {
    if (!source.starts_with("//"))
        return std::nullopt;
    const std::size_t slash = source.find('/', 2);
    if (slash == std::string::npos)
        return std::nullopt;
    return Source{source.substr(2, slash - 2), trimmed(std::string_view(source).substr(slash))};
}

/// "server:/folder", the server perhaps as an address in brackets.
std::optional<Source> exportedFolder(const std::string& source) {
    const std::size_t behind = source.starts_with('[') ? source.find(']') : 0;
    const std::size_t colon = behind == std::string::npos ? behind : source.find(':', behind);
    if (colon == std::string::npos)
        return std::nullopt;
    const std::string_view all = source;
    const std::string_view computer = behind > 0 ? all.substr(1, behind - 1) : all.substr(0, colon);
    return Source{std::string(computer), trimmed(all.substr(colon + 1))};
}

std::optional<Source> sourceOf(std::string_view type, const std::string& source) {
    if (type == "cifs" || type == "smb3" || type == "smbfs")
        return windowsShare(source);
    if (type == "nfs" || type == "nfs4")
        return exportedFolder(source);
    return std::nullopt;
}

/// Fields: number, parent, device, root, mount point, options, optional ones, "-", type, source, options.
std::optional<MountedShare> readLine(std::string_view line) {
    constexpr std::size_t root = 3;
    constexpr std::size_t mountPoint = 4;
    constexpr std::size_t firstOptional = 6;
    const std::vector<std::string_view> fields = words(line);
    if (fields.size() <= firstOptional)
        return std::nullopt;
    const auto dash = std::find(fields.begin() + firstOptional, fields.end(), "-");
    if (fields.end() - dash < 3)
        return std::nullopt;
    const std::optional<Source> source = sourceOf(dash[1], withoutOctalEscapes(dash[2]));
    if (!source || source->computer.empty() || !fields[mountPoint].starts_with('/'))
        return std::nullopt;
    MountedShare share{source->computer, source->share, withoutOctalEscapes(fields[mountPoint])};
    const std::string inside = trimmed(withoutOctalEscapes(fields[root]));
    // A part of the share that is mounted on its own; shares name that part in the source already at times.
    if (!inside.empty() && !("/" + share.share).ends_with("/" + inside))
        share.share += (share.share.empty() ? "" : "/") + inside;
    return share.share.empty() ? std::nullopt : std::optional(share);
}

} // namespace

std::string withoutOctalEscapes(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\' && at + 3 < text.size() && text[at + 1] <= '3' && isOctal(text[at + 1]) &&
            isOctal(text[at + 2]) && isOctal(text[at + 3])) {
            plain += static_cast<char>(
                (text[at + 1] - '0') * 64 + (text[at + 2] - '0') * 8 + (text[at + 3] - '0'));
            at += 3;
        } else {
            plain += text[at];
        }
    }
    return plain;
}

std::vector<MountedShare> mountedShares(std::string_view text) {
    std::vector<MountedShare> shares;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::optional<MountedShare> share = readLine(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!share)
            continue;
        std::erase_if(shares, [&](const MountedShare& each) { return each.folder == share->folder; });
        shares.push_back(*share);
    }
    return shares;
}

} // namespace drafta
