#include "embedded/drawings/drawing.h"
#include "base/fold.h"
#include "base/text.h"
#include "embedded/drawings/drawing_file.h"
#include "siblings/atomic_file.h"
#include "siblings/rename_file.h"

#include <algorithm>
#include <array>

namespace drafta {

using ryv::CStringView;
using ryv::DrawingResult;

namespace {

/// The least that readers of release 12 are content with: the layer that all drawings have, and no entity.
ryv::ByteBuffer blankContent() {
    DxfWriter writer({true, true});
    writer.pair(0, "SECTION").pair(2, "HEADER");
    writer.pair(9, "$DWGCODEPAGE").pair(3, "ANSI_1252");
    writer.pair(9, "$INSBASE").real(10, 0).real(20, 0).real(30, 0);
    writer.pair(9, "$TEXTSIZE").real(40, 0.2).pair(9, "$CLAYER").pair(8, "0");
    writer.pair(9, "$HANDLING").integer(70, 1).pair(9, "$HANDSEED").pair(5, "5").pair(0, "ENDSEC");
    writer.pair(0, "SECTION").pair(2, "TABLES");
    writer.pair(0, "TABLE").pair(2, "LTYPE").integer(70, 1).pair(0, "LTYPE").pair(5, "1");
    writer.pair(2, "CONTINUOUS")
        .integer(70, 0)
        .pair(3, "Solid line")
        .integer(72, 65)
        .integer(73, 0)
        .real(40, 0);
    writer.pair(0, "ENDTAB").pair(0, "TABLE").pair(2, "LAYER").integer(70, 1).pair(0, "LAYER").pair(5, "2");
    writer.pair(2, "0").integer(70, 0).integer(62, 7).pair(6, "CONTINUOUS").pair(0, "ENDTAB");
    writer.pair(0, "TABLE").pair(2, "STYLE").integer(70, 1).pair(0, "STYLE").pair(5, "3").pair(2, "STANDARD");
    writer.integer(70, 0).real(40, 0).real(41, 1).real(50, 0).integer(71, 0).real(42, 0.2).pair(3, "txt");
    writer.pair(4, "").pair(0, "ENDTAB").pair(0, "ENDSEC");
    for (const std::string_view name : {"BLOCKS", "ENTITIES"})
        writer.pair(0, "SECTION").pair(2, name).pair(0, "ENDSEC");
    writer.pair(0, "EOF");
    ryv::ByteBuffer bytes;
    if (bytes.allocate(writer.size()))
        std::copy(writer.text().begin(), writer.text().end(), bytes.data());
    return bytes;
}

} // namespace

Drawing::Drawing(ryv::Files& files, DrawingContent content) : files_(&files), content_(std::move(content)) {}

std::shared_ptr<Drawing> Drawing::load(ryv::Files& files, CStringView path, DrawingResult& result) {
    ryv::Fingerprint fingerprint;
    std::optional<DrawingContent> content = readDrawing(files, path, fingerprint, result);
    if (!content)
        return nullptr;
    const std::shared_ptr<Drawing> drawing(new Drawing(files, std::move(*content)));
    drawing->path_ = path;
    drawing->fingerprint_ = fingerprint;
    drawing->hashIsDue_ = true;
    return drawing;
}

std::shared_ptr<Drawing> Drawing::fromTemplate(ryv::Files& files, CStringView path, DrawingResult& result) {
    std::shared_ptr<Drawing> drawing = load(files, path, result);
    if (drawing) {
        drawing->path_.clear();
        drawing->fingerprint_ = {};
    }
    return drawing;
}

std::shared_ptr<Drawing> Drawing::blank(ryv::Files& files) {
    DxfFault fault;
    ryv::ByteBuffer bytes = blankContent();
    return std::shared_ptr<Drawing>(new Drawing(files, DrawingContent::read(bytes, fault).value()));
}

ryv::Fingerprint Drawing::fingerprint() const noexcept {
    ryv::Fingerprint fingerprint = fingerprint_;
    if (hashIsDue_)
        fingerprint.hash = content_.readHash();
    return fingerprint;
}

DrawingResult Drawing::write(CStringView path, std::optional<ryv::Fingerprint> expected) {
    const ryv::SaveResult saved =
        ryv::saveAtomically(*files_, {ryv::CString(path), content_.bytes(), std::move(expected)});
    if (saved.replaced) {
        fingerprint_ = saved.written;
        hashIsDue_ = false;
        path_ = path;
    }
    if (!saved.ok())
        return drawingFailure(saved.file, 0, ryv::fromAscii(ryv::describe(saved.status.error)));
    savedRevision_ = content_.revision();
    return {};
}

DrawingResult Drawing::save() {
    if (!isModified())
        return {};
    if (path_.empty())
        return drawingFailure(path_, 0, u"it has to be given a name first");
    return write(ryv::CString(path_), fingerprint());
}

DrawingResult Drawing::saveAs(CStringView path) {
    if (ryv::equalNoCase(path, path_))
        return write(ryv::CString(path), fingerprint());
    return write(ryv::CString(path), std::nullopt);
}

ryv::FileStatus Drawing::rename(CStringView path) {
    const ryv::FileStatus status = ryv::renameWithoutReplacing(*files_, path_, path);
    if (status.ok())
        path_ = path;
    return status;
}

void Drawing::close() noexcept {
    closed_ = true;
    hook_ = nullptr;
}

} // namespace drafta
