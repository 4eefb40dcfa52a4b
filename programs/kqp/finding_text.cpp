#include "programs/kqp/finding_text.h"

namespace kqp {

std::string_view describe(ryv::ProjectFinding finding) {
    using enum ryv::ProjectFinding;
    switch (finding) {
    case undecodableBytes:
        return "bytes that mean nothing in the file's encoding do not come out as text";
    case nulCharacter:
        return "a NUL character inside the line stays in its text";
    case malformedIndex:
        return "no number and closing bracket behind the opening one, line dropped";
    case indexOutOfRange:
        return "number outside the range of its section, line dropped";
    case repeatedIndex:
        return "number stood before, this line replaces the earlier one";
    case blanksDropped:
        return "blanks in front of the value dropped";
    case unknownAttribute:
        return "no known attribute, read as the one that it begins like";
    case attributeOverwritten:
        return "description replaces an earlier one of the same drawing";
    case emptyTrace:
        return "subfolder without a name, line dropped";
    case markerRepeated:
        return "another subfolder for the same drawing, which moves there";
    case emptyMarkerTail:
        return "text behind \"[Empty]\", of which the last seven characters are dropped instead";
    case attributesWithoutDrawing:
        return "attributes without a drawing behind them dropped";
    case pathNotJoined:
        return "path too long to be joined to the project's folder, stays relative";
    case emptyPath:
        return "path without a name";
    case duplicateDrawing:
        return "drawing listed before, both are kept";
    case sectionOrder:
        return "line belongs further up, it is read and moves there when the file is written";
    case lineBreakInText:
        return "line break inside the text becomes a blank when the file is written";
    case settingOfDrawing:
        return "setting that belongs to single drawings, it is read and not written again";
    case emptyTraceComponent:
        return "empty name in front of, between or behind the subfolders, skipped";
    }
    return "something unexpected";
}

} // namespace kqp
