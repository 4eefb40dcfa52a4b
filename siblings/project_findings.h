// What a reader of a project file meets that it drops, repairs or reads differently from what somebody may
// have meant. Readers go on silently; a reporter that is handed in hears of each place.
#pragma once

#include "base/strings.h"

#include <cstddef>

namespace ryv {

enum class ProjectFinding {
    undecodableBytes,         ///< bytes that mean nothing in the file's encoding
    nulCharacter,             ///< a NUL inside a line
    malformedIndex,           ///< "*[", "+[" or "?[" without a number and "]": the line is dropped
    indexOutOfRange,          ///< a number outside the range of its section: the line is dropped
    repeatedIndex,            ///< a number that stood before: the later line replaces the earlier
    blanksDropped,            ///< blanks in front of a setting's value are dropped
    unknownAttribute,         ///< "=..." that is none of the long forms: read as a description
    attributeOverwritten,     ///< a description of the same drawing stood before and is lost
    emptyTrace,               ///< a subfolder marker without a name
    markerRepeated,           ///< a second subfolder marker in front of the same path moves the drawing
    emptyMarkerTail,          ///< text behind "[Empty]"
    attributesWithoutDrawing, ///< attribute lines behind the last path line belong to no drawing and are
                              ///< dropped
    pathNotJoined,    ///< a relative path too long to be joined to the project's folder stays relative
    emptyPath,        ///< a path line without a path
    duplicateDrawing, ///< a path that stood before, case ignored
    sectionOrder,    ///< a line that belongs further up: it is read, and moves there when the file is written
    lineBreakInText, ///< a line break inside a text: it becomes a blank when the file is written
    settingOfDrawing,   ///< a setting that belongs to single drawings: it is read and not written again
    emptyTraceComponent ///< a subfolder marker with an empty name between others, which is skipped
};

class ProjectReporter {
public:
    virtual ~ProjectReporter() = default;

    /// `line` counts from 1; 0 when no line can be named. `text` is the part of the line concerned.
    virtual void found(std::size_t line, ProjectFinding finding, CStringView text) = 0;
};

} // namespace ryv
