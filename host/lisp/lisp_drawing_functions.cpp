#include "host/lisp/lisp_drawing_functions.h"

#include "base/text.h"
#include "bridge/platform.h"
#include "model/settings_block.h"

namespace ryv::lisp_functions {

namespace {

/// The drawing that a call is about, for the time of the call.
struct Selection {
    std::unique_ptr<DrawingDatabase> drawing; // null when there is none
    bool inFile = false;                      // nobody else will save it
};

Selection drawingInFile(CStringView path) {
    DrawingResult result;
    return {platform().host.drawings->open(replaceAll(path, u'/', u'\\'), result), true};
}

Selection drawingByNumber(std::int32_t number) {
    return {platform().host.drawings->byNumber(number), false};
}

/// Nothing when the argument selects no drawing. An empty path counts as the number 0, which no drawing has
/// unless the host gives it out.
std::optional<Selection> select(const LispValues& arguments) {
    if (const CString* const path = arguments.string(0))
        return path->empty() ? drawingByNumber(0) : drawingInFile(*path);
    if (const std::int16_t* const number = arguments.integer(0))
        return drawingByNumber(*number);
    if (const std::int32_t* const number = arguments.longInteger(0))
        return drawingByNumber(*number);
    if (!arguments.is(0, ResultType::nil))
        return std::nullopt;
    const DocumentId current = platform().host.documents->currentDocument();
    return Selection{platform().host.drawings->ofDocument(current), false};
}

bool ensureAll(DrawingDatabase& drawing, bool showMessages) {
    RyvDbxBlockRef accessor(drawing);
    return ensureSettingsBlock(accessor, showMessages) && addMissingSettingsAttributes(accessor);
}

} // namespace

LispAnswer ensureSettingsBlockAndAttributes(const LispValues& arguments) {
    const std::optional<Selection> selection = select(arguments);
    if (!selection)
        return LispAnswer::wrong();
    if (!selection->drawing)
        return LispAnswer::nil();
    const bool ensured = ensureAll(*selection->drawing, arguments.is(1, ResultType::truth));
    return LispAnswer::truth(ensured && (!selection->inFile || selection->drawing->save().ok()));
}

} // namespace ryv::lisp_functions
