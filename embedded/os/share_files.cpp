#include "embedded/os/share_files.h"

#include "embedded/os/mount_table.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace drafta {

namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The lines with those put together that end in "\".
std::vector<std::string> logicalLines(std::string_view text) {
    std::vector<std::string> lines;
    bool goesOn = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = trim(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!goesOn)
            lines.emplace_back();
        goesOn = line.ends_with('\\');
        if (goesOn)
            line.remove_suffix(1);
        lines.back() += line;
    }
    return lines;
}

/// Case and blanks do not count in names of settings: "Print OK".
std::string settingName(std::string_view text) {
    std::string name;
    for (const char unit : text)
        if (unit != ' ' && unit != '\t')
            name += unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
    return name;
}

bool isYes(std::string_view value) {
    const std::string word = settingName(value);
    return word == "yes" || word == "true" || word == "1" || word == "on";
}

std::string asFolder(std::string_view path) {
    if (path.size() >= 2 && path.front() == '"' && path.back() == '"')
        path = path.substr(1, path.size() - 2);
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return std::string(path);
}

struct Section {
    SharedFolder share;
    bool isShared = true;

    void set(const std::string& name, std::string_view value) {
        if (name == "path" || name == "directory")
            share.folder = asFolder(value);
        else if (name == "available")
            isShared = isYes(value);
        else if ((name == "printable" || name == "printok") && isYes(value))
            isShared = false;
    }
    bool counts() const {
        static constexpr std::string_view special[] = {"global", "homes", "printers", "print$"};
        const std::string name = settingName(share.name);
        return isShared && !name.empty() && share.folder.starts_with('/') &&
               share.folder.find('%') == std::string::npos && share.name.find('/') == std::string::npos &&
               std::find(std::begin(special), std::end(special), name) == std::end(special);
    }
};

/// The first word of a line, in quotes when it holds blanks.
std::string firstWord(std::string_view line) {
    if (line.starts_with('"')) {
        const std::size_t end = line.find('"', 1);
        return end == std::string_view::npos ? std::string() : std::string(line.substr(1, end - 1));
    }
    return std::string(line.substr(0, line.find_first_of(blanks)));
}

} // namespace

std::vector<SharedFolder> sambaShares(std::string_view text) {
    std::vector<SharedFolder> shares;
    std::optional<Section> section;
    const auto finish = [&] {
        if (section && section->counts())
            shares.push_back(section->share);
        section.reset();
    };
    for (const std::string& whole : logicalLines(text)) {
        const std::string_view line = trim(whole);
        if (line.empty() || line.starts_with('#') || line.starts_with(';'))
            continue;
        const std::size_t equals = line.find('=');
        if (line.starts_with('[')) {
            finish();
            const std::size_t end = line.find(']');
            if (end != std::string_view::npos)
                section = Section{{std::string(trim(line.substr(1, end - 1))), {}}};
        } else if (section && equals != std::string_view::npos) {
            section->set(settingName(line.substr(0, equals)), trim(line.substr(equals + 1)));
        }
    }
    finish();
    return shares;
}

std::vector<SharedFolder> nfsExports(std::string_view text) {
    std::vector<SharedFolder> shares;
    for (const std::string& whole : logicalLines(text)) {
        const std::string_view line = trim(whole);
        if (line.empty() || line.starts_with('#'))
            continue;
        const std::string folder = asFolder(withoutOctalEscapes(firstWord(line)));
        if (folder.size() > 1 && folder.starts_with('/'))
            shares.push_back({folder.substr(1), folder});
    }
    return shares;
}

} // namespace drafta
