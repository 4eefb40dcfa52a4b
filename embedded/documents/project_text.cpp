#include "embedded/documents/project_text.h"

#include "base/encoding.h"
#include "base/format.h"
#include "base/text.h"
#include "embedded/services/host_texts.h"
#include "resources/file_reasons.h"

namespace drafta {

namespace {

/// A line break inside of a line would make two of it.
void addLine(ryv::CString& text, ryv::CString line) {
    for (char16_t& unit : line)
        if (unit == u'\n' || unit == u'\r')
            unit = u' ';
    text += line + u"\n";
}

} // namespace

bool ProjectText::read(ryv::CStringView path, Content& content) {
    if (!openProject(path, false) || !readProject())
        return false;
    content = {};
    const ryv::CStringList descriptions = sections().descriptionLines();
    content.descriptions.assign(descriptions.begin(), descriptions.end());
    initMiscProjSettings(content.misc);
    content.settings = sections().settings();
    for (std::size_t i = 0; i < sections().drawingLineCount(); ++i)
        content.lines.emplace_back(sections().drawingLine(i));
    return true;
}

bool ProjectText::write(const Content& content) {
    const std::optional<ryv::Fingerprint> known = knownContent();
    if (!openProject(ryv::CString(projectPath()), true))
        return false;
    if (known)
        expectContent(*known);
    ryv::CString text;
    int number = 0;
    for (const ryv::CString& line : content.descriptions)
        if (++number; !line.empty())
            addLine(text, ryv::format(u"*[%d]%s", {number, line}));
    for (const auto& [index, value] : content.misc.values())
        addLine(text, ryv::format(u"+[%d]%s", {index, value}));
    for (const auto& [index, value] : content.settings)
        addLine(text, ryv::format(u"?[%d]%s", {index, value}));
    for (const ryv::CString& line : content.lines)
        addLine(text, line);
    return commit(ryv::toUtf8(text));
}

ryv::CString ProjectText::problem() const {
    if (getLastError() == changedOutside)
        return lastFile() + u": " + ryv::CString(hostText(u"somebody else changed it meanwhile"));
    return lastFile() + u": " + ryv::fileReason(lastStatus().error);
}

} // namespace drafta
