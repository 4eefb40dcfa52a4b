#include "embedded/drawings/block_copier.h"
#include "base/encoding.h"
#include "base/fold.h"
#include "embedded/drawings/geometry.h"

#include <algorithm>

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

constexpr std::string_view blockRecordTable = "BLOCK_RECORD";

/// Line types that every drawing has without an entry.
bool isBuiltIn(CStringView name) {
    return ryv::equalNoCase(name, u"BYLAYER") || ryv::equalNoCase(name, u"BYBLOCK") ||
           ryv::equalNoCase(name, u"CONTINUOUS");
}

CString tableTitle(std::string_view table) {
    return table == "LAYER" ? u"layers" : table == "LTYPE" ? u"line types" : u"text styles";
}

std::string upperKey(CStringView name) {
    return ryv::toUtf8(ryv::toUpper(name));
}

/// An entry for a name that the source uses without having an entry for it.
std::string plainEntry(const DrawingContent& source, std::string_view table, std::string_view name) {
    DxfWriter writer = source.writer();
    writer.pair(0, table).pair(2, name).integer(70, 0);
    if (table == "LAYER")
        writer.integer(62, 7).pair(6, "CONTINUOUS");
    else if (table == "LTYPE")
        writer.pair(3, "").integer(72, 65).integer(73, 0).real(40, 0);
    else
        writer.real(40, 0).real(41, 1).real(50, 0).integer(71, 0).real(42, 0.2).pair(3, "txt").pair(4, "");
    return writer.text();
}

/// What has to stand around new text when there is no section for it yet.
struct SectionFrame {
    SectionFrame(const DxfWriter& empty, std::string_view name, bool isNeeded) : open(empty), close(empty) {
        if (!isNeeded)
            return;
        open.pair(0, "SECTION").pair(2, name);
        close.pair(0, "ENDSEC");
    }

    std::string around(const std::string& text) const { return open.text() + text + close.text(); }

    DxfWriter open, close;
};

} // namespace

BlockCopier::BlockCopier(const DrawingContent& source, DrawingContent& target)
    : source_(source), target_(target), definitions_(target.writer()), blockRecords_(target.writer()) {}

CopyFault BlockCopier::copy(CStringView name) {
    std::string bytes;
    if (!target_.text().encode(name, bytes))
        return {u"the name of the block holds control characters"};
    if (CopyFault fault = checkTarget())
        return fault;
    known_.insert(upperKey(name));
    waiting_.push_back(modelSpace(bytes));
    while (!waiting_.empty()) {
        const Definition next = std::move(waiting_.front());
        waiting_.pop_front();
        if (CopyFault fault = define(next))
            return fault;
    }
    return {};
}

CopyFault BlockCopier::checkTarget() {
    if (target_.index().section("ENTITIES") == nullptr)
        return {u"the drawing has no section for entities"};
    const std::optional<RecordHead> head = RecordHead::forSpace(target_, drafta::modelSpace);
    if (!head)
        return {u"the drawing has no record that shows how a new one has to be marked"};
    head_ = *head;
    head_.layer = "0";
    head_.layout.clear();
    const bool isLater = target_.index().atLeast(DxfRelease::r13);
    if (isLater && (!target_.index().table(blockRecordTable) || !target_.index().section("BLOCKS")))
        return {u"the drawing has no table of blocks"};
    return {};
}

BlockCopier::Definition BlockCopier::modelSpace(std::string name) const {
    Definition definition{std::move(name), {}, {}};
    const DrawingIndex& index = source_.index();
    if (const std::size_t block = index.spaces[drafta::modelSpace].block; block != nowhere)
        definition.content.push_back({{}, index.blocks[block].content, index.blocks[block].end});
    if (const DxfRange* const section = index.section("ENTITIES"))
        definition.content.push_back({{}, source_.record(section->begin).end(), section->end});
    if (const DxfVariable* const base = index.variable("$INSBASE"))
        definition.base = {parseReal(base->value).value_or(0), parseReal(base->more[0]).value_or(0),
            parseReal(base->more[1]).value_or(0)};
    return definition;
}

CopyFault BlockCopier::define(const Definition& definition) {
    const std::optional<std::uint64_t> first = target_.takeHandles(3); // of table entry, BLOCK and ENDBLK
    if (!first)
        return {u"the drawing has no free handle left"};
    const bool isLater = !head_.markPrefix.empty();
    RecordHead head = head_;
    if (isLater) {
        head.owner = *first == 0 ? std::string() : handleText(*first);
        if (!writeBlockRecord(definition.name, *first))
            return {u"the drawing's table of blocks is empty"};
    }
    const std::uint64_t step = *first == 0 ? 0 : 1;
    RecordConverter converter(source_, target_, head);
    DxfBlock made;
    made.name = definition.name;
    made.begin = definitions_.size();
    DxfWriter content = target_.writer();
    if (CopyFault fault = copyContent(definition, converter, content))
        return fault;
    head.write(definitions_, "BLOCK", *first + step);
    head.writeMark(definitions_, "BlockBegin");
    definitions_.pair(2, definition.name).integer(70, converter.needed().hasAttributes ? 2 : 0);
    definitions_.real(10, definition.base.x).real(20, definition.base.y).real(30, definition.base.z);
    definitions_.pair(3, definition.name).pair(1, "");
    made.content = definitions_.size();
    definitions_.append(content);
    made.end = definitions_.size();
    head.write(definitions_, "ENDBLK", *first + 2 * step);
    head.writeMark(definitions_, "BlockEnd");
    made_.push_back(std::move(made));
    for (const std::string& nested : converter.needed().blocks)
        if (CopyFault missing = requireNested(nested, definition.name))
            return missing;
    return addAllEntries(converter);
}

CopyFault BlockCopier::copyContent(
    const Definition& definition, RecordConverter& converter, DxfWriter& writer) {
    for (const DxfRange& range : definition.content) {
        bool skips = false; // the last main entity is one of paper space
        for (std::size_t at = range.begin; at < range.end;) {
            const DxfRecord entity = source_.record(at);
            at = entity.end();
            const std::string_view kind = entity.kind();
            if (kind != "VERTEX" && kind != "ATTRIB" && kind != "SEQEND")
                skips = entity.integer(dxf::onPaper, 0) == 1;
            if (skips)
                continue;
            if (CopyFault fault = converter.convert(entity, writer))
                return fault;
        }
    }
    return {};
}

/// Sees to it that a block inserted in a copied one is defined: by the target's own block of that name, or by
/// the source's.
CopyFault BlockCopier::requireNested(const std::string& name, const std::string& within) {
    const CString text = target_.text().decode(trimmed(name));
    if (ryv::equalNoCase(text, target_.text().decode(made_.front().name)))
        return {u"the block " + text + u" would hold itself", 0};
    if (text.starts_with(u'*'))
        return {u"a block without a name of its own (" + text + u") cannot be copied", 0};
    if (target_.findBlock(text) != nowhere || !known_.insert(upperKey(text)).second)
        return {};
    const std::size_t found = source_.findBlock(text);
    if (found == nowhere)
        return {u"the block " + text + u", which is inserted in " + target_.text().decode(within) +
                    u", is not defined",
            0};
    const DxfBlock& block = source_.index().blocks[found];
    const DxfRecord record = source_.record(block.begin);
    constexpr int external = 4 | 8 | 16 | 32;
    if ((record.integer(70, 0) & external) != 0)
        return {u"the block " + text + u" lies in a file of its own", block.begin};
    waiting_.push_back({name, {{{}, block.content, block.end}}, pointOf(record, 10)});
    return {};
}

/// Layers first: their entries name line types.
CopyFault BlockCopier::addAllEntries(RecordConverter& converter) {
    if (CopyFault fault = addEntries(converter, "LAYER", converter.needed().layers))
        return fault;
    if (CopyFault fault = addEntries(converter, "LTYPE", converter.needed().lineTypes))
        return fault;
    return addEntries(converter, "STYLE", converter.needed().textStyles);
}

CopyFault BlockCopier::addEntries(
    RecordConverter& converter, std::string_view table, const std::set<std::string>& names) {
    for (const std::string& name : names) {
        const CString text = target_.text().decode(trimmed(name));
        const bool isBuiltInType = table == "LTYPE" && isBuiltIn(text);
        const bool isNew = known_.insert(std::string(table) + "|" + upperKey(text)).second;
        if (!isNew || isBuiltInType || text.empty() || target_.findTableEntry(table, text) != nowhere)
            continue;
        if (CopyFault fault = addEntry(converter, table, name))
            return fault;
    }
    return {};
}

CopyFault BlockCopier::addEntry(RecordConverter& converter, std::string_view table, const std::string& name) {
    const DxfRange* const range = target_.index().table(table);
    const bool isLater = target_.index().atLeast(DxfRelease::r13);
    if (!range && isLater)
        return {u"the drawing has no table of " + tableTitle(table)};
    const std::size_t first = range ? target_.record(range->begin).end() : nowhere;
    const DxfRecord sample = range && first < range->end ? target_.record(first) : DxfRecord();
    if (sample.pairs().empty() && isLater)
        return {u"the drawing has an empty table, which shows no way to add to it"};
    const CString text = target_.text().decode(trimmed(name));
    const std::size_t found = source_.findTableEntry(table, text);
    const std::string plain = plainEntry(source_, table, name);
    auto entries =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entries& e) { return e.table == table; });
    if (entries == entries_.end())
        entries = entries_.insert(entries, {table, target_.writer()});
    ++entries->count;
    return converter.convertEntry(
        found == nowhere ? DxfRecord(plain, 0) : source_.record(found), sample, entries->writer);
}

/// A table entry like the first one, which is a space's.
bool BlockCopier::writeBlockRecord(const std::string& name, std::uint64_t handle) {
    const DxfRange& table = *target_.index().table(blockRecordTable);
    const std::size_t at = target_.record(table.begin).end();
    if (at >= table.end)
        return false;
    for (const DxfPair& pair : ownPairs(target_.record(at))) {
        if (pair.code == dxf::handle)
            blockRecords_.handle(dxf::handle, handle);
        else if (pair.code == 2)
            blockRecords_.pair(2, name);
        else if (pair.code == 340)
            blockRecords_.pair(340, "0"); // it has no layout
        else if (pair.code != 310 && !isReferenceCode(pair.code))
            blockRecords_.pair(pair.code, pair.value);
        else if (pair.code == dxf::owner)
            blockRecords_.pair(pair.code, pair.value);
    }
    return true;
}

/// Line types first, as layers name them.
BlockCopier::NewTables BlockCopier::newTables() const {
    NewTables tables{target_.writer(), {}};
    for (const std::string_view table : {"LTYPE", "LAYER", "STYLE"})
        for (const Entries& entries : entries_) {
            if (entries.table != table || target_.index().table(table))
                continue;
            const std::size_t begin = tables.writer.size();
            tables.writer.pair(0, "TABLE").pair(2, table).integer(70, entries.count).append(entries.writer);
            tables.ranges.push_back({std::string(table), begin, tables.writer.size()});
            tables.writer.pair(0, "ENDTAB");
        }
    return tables;
}

void BlockCopier::apply() {
    const DrawingIndex& index = target_.index();
    const DxfRange* const blocks = index.section("BLOCKS");
    const DxfRange* const tables = index.section("TABLES");
    const std::size_t entities = index.section("ENTITIES")->begin;
    const NewTables lacking = newTables();
    const SectionFrame blocksFrame(target_.writer(), "BLOCKS", !blocks);
    const SectionFrame tablesFrame(target_.writer(), "TABLES", !tables && lacking.writer.size() != 0);
    const std::size_t sections = blocks ? std::min(blocks->begin, entities) : entities;
    std::vector<DxfSplice> splices{
        {tables ? tables->end : sections, 0, tablesFrame.around(lacking.writer.text())},
        {blocks ? blocks->end : entities, 0, blocksFrame.around(definitions_.text())}};
    if (blockRecords_.size() != 0)
        splices.push_back({index.table(blockRecordTable)->end, 0, blockRecords_.text()});
    for (const Entries& entries : entries_)
        if (const DxfRange* const table = index.table(entries.table))
            splices.push_back({table->end, 0, entries.writer.text()});
    const std::vector<std::size_t> begins = target_.apply(std::move(splices));
    const std::size_t firstTable = begins[0] + tablesFrame.open.size();
    for (const DxfRange& table : lacking.ranges)
        target_.addTable(table.name, firstTable + table.begin, firstTable + table.end);
    const std::size_t firstBlock = begins[1] + blocksFrame.open.size();
    for (const DxfBlock& made : made_)
        target_.addBlock(
            made.name, firstBlock + made.begin, firstBlock + made.content, firstBlock + made.end);
    if (tablesFrame.open.size() != 0)
        target_.addSection("TABLES", begins[0], firstTable + lacking.writer.size());
    if (blocksFrame.open.size() != 0)
        target_.addSection("BLOCKS", begins[1], firstBlock + definitions_.size());
}

} // namespace drafta
