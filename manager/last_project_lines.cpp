#include "manager/last_project_lines.h"

#include "base/encoding.h"
#include "base/format.h"
#include "base/text.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr CStringView oldListMark = u"%KQ_PROJ%";
constexpr std::size_t longestPath = 32'767;
constexpr std::size_t maximumRead = 30;

/// UTF-16 without a mark betrays itself by the zero half of its ASCII characters, of which every line has
/// many; no other encoding has zero bytes.
CString decodeLines(std::string_view bytes) {
    std::size_t zeros[2] = {};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if (bytes[i] == '\0')
            ++zeros[i % 2];
    TextEncoding encoding = detectEncoding(bytes);
    if (markLength(encoding) == 0 && zeros[0] + zeros[1] > 0)
        return decodeUtf16(bytes, zeros[0] > zeros[1]);
    return decodeDetecting(bytes, encoding);
}

LastProject readLine(CStringView line) {
    LastProject project{{}, CString(last_project_code::open)};
    const std::size_t begin = line.find(u'"');
    // An ID has one character at least, which may be anything.
    const std::size_t end = begin == CStringView::npos ? begin : line.find(u'"', begin + 2);
    if (end == CStringView::npos)
        return project;
    project.id = line.substr(begin + 1, end - begin - 1);
    const std::size_t last = line.rfind(u'"');
    const CStringView code = last > end + 1 ? line.substr(last - 1, 1) : CStringView();
    if (code == last_project_code::active || code == last_project_code::closed)
        project.code = code;
    return project;
}

} // namespace

bool readLastProjectLines(std::string_view bytes, std::vector<LastProject>& projects) {
    projects.clear();
    const CString decoded = decodeLines(bytes);
    for (CStringView text = decoded; !text.empty() && projects.size() < maximumRead;) {
        const std::size_t end = findUnit(text, u'\n');
        const CStringView line = text.substr(0, end);
        if (line.find(oldListMark) != CStringView::npos)
            return false;
        projects.push_back(readLine(line));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return true;
}

std::string toLastProjectLines(const std::vector<LastProject>& projects) {
    CString text;
    for (const LastProject& project : projects)
        text += format(u"(\"%s\" \"\" \"\" \"\" \"\" \"%s\")\n", {project.id, project.code});
    std::string bytes(mark(TextEncoding::utf16LittleEndian));
    encodeUtf16(text, false, bytes);
    return bytes;
}

bool fitsInLastProjectLine(CStringView text) {
    return text.size() <= longestPath && text.find_first_of(u"\"\r\n") == CStringView::npos &&
           text.find(oldListMark) == CStringView::npos;
}

} // namespace ryv
