// A drawing of any bytes: read, looked through, changed in all the ways there are, and read again.
//
// Whatever is refused has to leave the bytes alone; after every change the bytes have to be a drawing still,
// and what is known of them has to be what a fresh look at them finds.
#include "embedded/drawings/attribute_run.h"
#include "embedded/drawings/drawing_view.h"
#include "fuzz/fuzz_input.h"
#include "tests/support/memory_files.h"

#include <cstdint>

namespace drafta {

namespace {

constexpr ryv::CStringView path = u"\\a.dwg", blockPath = u"\\block.dwg";
constexpr std::size_t mostReferences = 20; // of one space, to be looked into

using fuzz::require;

/// A block file of release 12.
std::string blockFile() {
    DxfWriter writer({false, false});
    writer.pair(0, "SECTION").pair(2, "ENTITIES");
    writer.pair(0, "LINE").pair(8, "WIRES").real(10, 0).real(20, 0).real(11, 1).real(21, 1);
    for (const std::string_view tag : {"A", "B"})
        writer.pair(0, "ATTDEF")
            .pair(8, "0")
            .real(10, 1)
            .real(20, 2)
            .real(40, 1)
            .pair(1, "v")
            .pair(3, "")
            .pair(2, tag)
            .integer(70, 1);
    return writer.pair(0, "ENDSEC").pair(0, "EOF").text();
}

std::vector<std::vector<std::size_t>> placesOf(const DrawingIndex& index) {
    std::vector<std::vector<std::size_t>> places(4);
    for (const DxfReference& reference : index.references)
        places[0].insert(places[0].end(), {reference.begin, reference.recordLength, reference.length});
    for (const DxfBlock& block : index.blocks)
        places[1].insert(places[1].end(), {block.begin, block.content, block.end});
    for (const DxfRange& section : index.sections)
        places[2].insert(places[2].end(), {section.begin, section.end});
    for (const DxfRange& table : index.tables)
        places[3].insert(places[3].end(), {table.begin, table.end});
    for (auto& list : places)
        std::sort(list.begin(), list.end());
    return places;
}

/// The names of the references of each space, sorted.
std::vector<std::vector<std::string>> namesOf(const DrawingIndex& index) {
    std::vector<std::vector<std::string>> names(index.spaces.size());
    for (std::size_t space = 0; space < names.size(); ++space) {
        for (const ReferenceId reference : index.spaces[space].references)
            names[space].push_back(index.names[index.references[reference].name]);
        std::sort(names[space].begin(), names[space].end());
    }
    return names;
}

void requireSound(const DrawingContent& content) {
    DrawingIndex fresh;
    require(!scanDrawing(content.bytes(), fresh));
    require(placesOf(fresh) == placesOf(content.index()));
    require(namesOf(fresh) == namesOf(content.index()));
}

void exerciseAttributes(DrawingView& view) {
    const std::vector<ryv::DrawingAttribute> attributes = view.attributes();
    const ryv::CString last = attributes.empty() ? ryv::CString() : attributes.back().tag;
    if (view.addAttribute(last, u"NEW", u"a \\U+0041 電", {1, -1.5, 0})) {
        ryv::CString value;
        require(view.readAttribute(u"NEW", value) && value == u"a \\U+0041 電");
        require(view.attributes().size() == attributes.size() + 1);
    }
    for (const ryv::DrawingAttribute& attribute : attributes) {
        require(view.hasAttribute(attribute.tag));
        const ryv::CString wanted = attribute.value + u"Ä";
        ryv::CString value;
        if (view.writeAttribute(attribute.tag, wanted))
            require(view.readAttribute(attribute.tag, value) && value == wanted);
    }
}

void exercise(DrawingView& view) {
    for (const ryv::CStringView space : {u"*Model_Space", u"*Paper_Space", u"*Paper_Space0"}) {
        if (!view.setSpace(space))
            continue;
        std::size_t count = 0;
        for (const ryv::CString& block : view.referredBlocks())
            for (bool found = view.firstReference(block); found && count < mostReferences;
                 found = view.nextReference(), ++count)
                exerciseAttributes(view);
        requireSound(view.drawing()->content());
        for (const ryv::CStringView file : {blockPath, path}) {
            const std::string before(view.drawing()->bytes());
            const std::size_t revision = view.drawing()->content().revision();
            const ryv::CString name = ryv::CString(file.substr(1)) + u" ä";
            const bool inserted =
                view.insertBlock({name, ryv::CString(file), {1, 2, 3}, {2, 3, 1}, 0.5}).ok();
            require(inserted || revision != view.drawing()->content().revision() ||
                    before == view.drawing()->bytes());
            requireSound(view.drawing()->content());
            if (inserted)
                exerciseAttributes(view);
            if (inserted)
                require(view.setSpace(space) && view.firstReference(name));
        }
    }
}

} // namespace

} // namespace drafta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace drafta;
    ryv::test::MemoryFiles files;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    files.put(path, bytes);
    files.put(blockPath, blockFile());
    ryv::DrawingResult result;
    const std::shared_ptr<Drawing> drawing = Drawing::load(files, path, result);
    require(result.ok() == (drawing != nullptr) && result.ok() == result.problem.empty());
    if (!drawing)
        return 0;
    require(drawing->bytes() == bytes && drawing->saveAs(u"\\b.dwg").ok() && files.get(u"\\b.dwg") == bytes);
    DrawingView view(drawing);
    exercise(view);
    require(view.save().ok() && files.get(u"\\b.dwg") == drawing->bytes());
    return 0;
}
