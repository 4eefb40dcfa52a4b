#include "embedded/database/drawing_rows.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "embedded/drawings/drawing_view.h"
#include "siblings/dbx_block_ref.h"

namespace drafta {

namespace {

constexpr ryv::CStringView settingsBlock = u"KQ_M";

/// In model space, else in the paper spaces, of which the one that was active last has no number.
bool openSettings(ryv::RyvDbxBlockRef& drawing) {
    const auto holds = [&drawing](ryv::CStringView space) {
        return drawing.setSpace(space) && drawing.findFirst(settingsBlock);
    };
    bool found = holds(u"*Model_Space") || holds(u"*Paper_Space");
    for (std::size_t i = 0; !found && i + 2 < drawing.layoutCount(); ++i)
        found = holds(ryv::format(u"*Paper_Space%d", {i}));
    return found;
}

void readValues(ryv::RyvDbxBlockRef& drawing, DrawingRow& row) {
    if (!drawing.getAttribute(u"SHEET", row.sheet))
        drawing.getAttribute(u"SHEET_", row.sheet); // of older blocks
    drawing.getAttribute(u"SHEETDWGNAME", row.number);
    drawing.getAttribute(u"IEC_INST", row.installation);
    drawing.getAttribute(u"IEC_LOC", row.location);
}

} // namespace

ryv::CString databaseKey(ryv::CStringView drawing) {
    return ryv::toUpper(ryv::replaceAll(drawing, u'\\', u'/'));
}

bool readDrawingRow(ryv::Files& files, ryv::CStringView drawing, DrawingRow& row) {
    ryv::DrawingResult result;
    std::shared_ptr<Drawing> content = Drawing::load(files, drawing, result);
    if (!content)
        return false;
    const ryv::Fingerprint read = content->fingerprint();
    DrawingView view(std::move(content));
    ryv::RyvDbxBlockRef accessor(view);
    row = {};
    row.drawing = databaseKey(drawing);
    row.state = {read.modifiedNanoseconds, static_cast<std::int64_t>(read.size)};
    if (openSettings(accessor))
        readValues(accessor, row);
    return true;
}

} // namespace drafta
