#include "embedded/drawings/drawing_scan.h"
#include "embedded/drawings/dxf_record.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <utility>

namespace drafta {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

template <class Ranges>
auto findNamed(const Ranges& ranges, std::string_view name) noexcept -> decltype(ranges.data()) {
    const auto found =
        std::find_if(ranges.begin(), ranges.end(), [&](const auto& r) { return r.name == name; });
    return found == ranges.end() ? nullptr : &*found;
}

bool isDigits(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// `upper` is plain ASCII, as the names of spaces are.
bool startsNoCase(std::string_view text, std::string_view upper) noexcept {
    const auto equal = [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; };
    return text.size() >= upper.size() &&
           std::equal(upper.begin(), upper.end(), text.begin(), [&](char b, char a) { return equal(a, b); });
}

/// The variables of the header that somebody asks for.
bool isKept(std::string_view name) noexcept {
    constexpr std::array<std::string_view, 6> names{
        "$DWGCODEPAGE", "$INSBASE", "$HANDLING", "$HANDSEED", "$CLAYER", "$TEXTSIZE"};
    return std::find(names.begin(), names.end(), name) != names.end();
}

class Scanner {
public:
    Scanner(std::string_view bytes, DrawingIndex& index)
        : bytes_(bytes), reader_(bytes, bytes.starts_with(byteOrderMark) ? byteOrderMark.size() : 0),
          index_(index) {
        index_ = {};
        index_.spaces.push_back({"*Model_Space", nowhere, {}});
        index_.spaces.push_back({"*Paper_Space", nowhere, {}});
    }

    DxfFault run();

private:
    /// What the record that the scanner is in is, as far as anything in it matters.
    enum class Record { other, section, header, table, block, insert };
    enum class Section { none, header, tables, blocks, entities, other };

    void fail(const char16_t* reason, std::size_t offset) {
        if (!fault_)
            fault_ = {reason, offset};
    }
    void beginRecord(const DxfPair& pair);
    void beginSection(const DxfPair& pair);
    void endSection(const DxfPair& pair);
    void beginInTables(const DxfPair& pair, std::string_view kind);
    void beginInBlocks(const DxfPair& pair, std::string_view kind);
    void beginInSpace(const DxfPair& pair, std::string_view kind);
    void detail(const DxfPair& pair);
    void headerDetail(const DxfPair& pair);
    void insertDetail(const DxfPair& pair);
    void nameSection(std::string_view name);
    void nameBlock(std::string_view name);
    void finishReference();
    void takeRelease(std::string_view value);
    std::size_t nameNumber(std::string_view name);

    std::string_view bytes_;
    DxfPairReader reader_;
    DrawingIndex& index_;
    DxfFault fault_;
    std::unordered_map<std::string_view, std::size_t> names_;
    Record record_ = Record::other;
    Section section_ = Section::none;
    bool inSection_ = false;
    bool inTable_ = false;
    bool inBlock_ = false;
    bool named_ = false; // the record has had its name
    bool ended_ = false;
    SpaceId blockSpace_ = nowhere; // the space that the open block definition is
    // The reference that the scanner is in or has just left, while attributes may follow.
    DxfReference reference_;
    bool inReference_ = false;
    bool attributesFollow_ = false;
    bool sawAttribute_ = false;
    bool inSequenceEnd_ = false;
    bool onPaper_ = false;
    bool inGroup_ = false;
    bool inVariable_ = false; // one that is kept
    bool hasFollowMark_ = false;
    bool hasPaperMark_ = false;
};

DxfFault Scanner::run() {
    DxfPair pair;
    DxfPairReader::Step step{};
    while (!fault_ && !ended_ && (step = reader_.next(pair)) == DxfPairReader::Step::pair) {
        if (pair.code == 0)
            beginRecord(pair);
        else if (record_ != Record::other)
            detail(pair);
    }
    if (fault_ || ended_)
        return fault_;
    if (step == DxfPairReader::Step::badCode)
        return {u"a group code was expected", pair.begin};
    return {u"the drawing ends before its EOF mark", bytes_.empty() ? 0 : bytes_.size() - 1};
}

void Scanner::beginRecord(const DxfPair& pair) {
    if (record_ == Record::section)
        return fail(u"a section has no name", index_.sections.back().begin);
    record_ = Record::other;
    named_ = false;
    const std::string_view kind = trimmed(pair.value);
    if (inReference_)
        beginInSpace(pair, kind); // ends the reference, or goes on with its attributes
    if (inReference_ || fault_)
        return;
    if (kind == "SECTION")
        return beginSection(pair);
    if (kind == "ENDSEC")
        return endSection(pair);
    if (kind == "EOF") {
        if (inSection_)
            return fail(u"the drawing ends inside a section", pair.begin);
        ended_ = true;
        return;
    }
    if (!inSection_)
        return fail(u"a record stands outside of all sections", pair.begin);
    if (section_ == Section::tables)
        beginInTables(pair, kind);
    else if (section_ == Section::blocks)
        beginInBlocks(pair, kind);
    else if (section_ == Section::entities && kind == "INSERT")
        beginInSpace(pair, kind);
}

void Scanner::beginSection(const DxfPair& pair) {
    if (inSection_)
        return fail(u"a section begins inside another one", pair.begin);
    inSection_ = true;
    section_ = Section::other;
    record_ = Record::section;
    index_.sections.push_back({{}, pair.begin, nowhere});
}

void Scanner::endSection(const DxfPair& pair) {
    if (!inSection_)
        return fail(u"a section ends that has not begun", pair.begin);
    if (inTable_)
        return fail(u"a section ends inside a table", pair.begin);
    if (inBlock_)
        return fail(u"a section ends inside a block definition", pair.begin);
    index_.sections.back().end = pair.begin;
    inSection_ = false;
    section_ = Section::none;
}

void Scanner::beginInTables(const DxfPair& pair, std::string_view kind) {
    if (kind == "TABLE") {
        if (inTable_)
            return fail(u"a table begins inside another one", pair.begin);
        inTable_ = true;
        record_ = Record::table;
        index_.tables.push_back({{}, pair.begin, nowhere});
    } else if (kind == "ENDTAB") {
        if (!inTable_)
            return fail(u"a table ends that has not begun", pair.begin);
        inTable_ = false;
        index_.tables.back().end = pair.begin;
    }
}

void Scanner::beginInBlocks(const DxfPair& pair, std::string_view kind) {
    if (kind == "BLOCK") {
        if (inBlock_)
            return fail(u"a block definition begins inside another one", pair.begin);
        inBlock_ = true;
        record_ = Record::block;
        blockSpace_ = nowhere;
        index_.blocks.emplace_back().begin = pair.begin;
        return;
    }
    if (!inBlock_)
        return fail(u"a record stands outside of all block definitions", pair.begin);
    DxfBlock& block = index_.blocks.back();
    if (block.content == nowhere)
        block.content = pair.begin;
    if (kind == "ENDBLK") {
        inBlock_ = false;
        block.end = pair.begin;
    } else if (kind == "INSERT" && blockSpace_ != nowhere) {
        beginInSpace(pair, kind);
    }
}

void Scanner::beginInSpace(const DxfPair& pair, std::string_view kind) {
    if (!inReference_) {
        reference_ = {pair.begin, 0, 0, nowhere};
        inReference_ = true;
        attributesFollow_ = sawAttribute_ = inSequenceEnd_ = onPaper_ = false;
        inGroup_ = hasFollowMark_ = hasPaperMark_ = false;
        record_ = Record::insert;
        return;
    }
    if (reference_.recordLength == 0)
        reference_.recordLength = reference_.length = pair.begin - reference_.begin;
    if (inSequenceEnd_) {
        reference_.length = pair.begin - reference_.begin;
        return finishReference();
    }
    // The text of an attribute with several lines stands in a record behind it.
    const bool goesOn = kind == "ATTRIB" || (kind == "MTEXT" && sawAttribute_);
    if (attributesFollow_ && (goesOn || kind == "SEQEND")) {
        sawAttribute_ = sawAttribute_ || goesOn;
        inSequenceEnd_ = kind == "SEQEND";
        return;
    }
    if (sawAttribute_)
        return fail(u"the attributes of a block reference have no end (SEQEND)", pair.begin);
    finishReference();
}

void Scanner::finishReference() {
    inReference_ = false;
    if (reference_.name == nowhere)
        return fail(u"a block reference names no block", reference_.begin);
    const SpaceId space = section_ == Section::blocks ? blockSpace_ : (onPaper_ ? paperSpace : modelSpace);
    index_.spaces[space].references.push_back(index_.references.size());
    index_.references.push_back(reference_);
}

void Scanner::detail(const DxfPair& pair) {
    if (record_ == Record::insert)
        return insertDetail(pair);
    if (record_ == Record::header)
        return headerDetail(pair);
    if (pair.code != 2 || named_)
        return;
    named_ = true;
    if (record_ == Record::section)
        nameSection(trimmed(pair.value));
    else if (record_ == Record::table)
        index_.tables.back().name = trimmed(pair.value);
    else
        nameBlock(pair.value);
}

void Scanner::nameSection(std::string_view name) {
    if (name.empty())
        return; // and the next record finds it so
    index_.sections.back().name = name;
    record_ = name == "HEADER" ? Record::header : Record::other;
    section_ = name == "HEADER"     ? Section::header
               : name == "TABLES"   ? Section::tables
               : name == "BLOCKS"   ? Section::blocks
               : name == "ENTITIES" ? Section::entities
                                    : Section::other;
}

void Scanner::nameBlock(std::string_view name) {
    index_.blocks.back().name = name;
    name = trimmed(name);
    constexpr std::size_t length = std::string_view("*Paper_Space").size();
    const bool plain = name.size() == length;
    const bool isModel = plain && startsNoCase(name, "*MODEL_SPACE");
    if (!isModel && !(startsNoCase(name, "*PAPER_SPACE") && isDigits(name.substr(length))))
        return;
    blockSpace_ = !plain ? index_.spaces.size() : isModel ? modelSpace : paperSpace;
    if (!plain)
        index_.spaces.push_back({std::string(name), nowhere, {}});
    index_.spaces[blockSpace_].block = index_.blocks.size() - 1;
}

/// Of several pairs with a code the first counts, as in DxfRecord::find.
void Scanner::insertDetail(const DxfPair& pair) {
    if (pair.code == 102)
        inGroup_ = pair.value.starts_with('{');
    else if (pair.code == 101 || pair.code >= 1001)
        record_ = Record::other;
    else if (inGroup_)
        return;
    else if (pair.code == 2 && reference_.name == nowhere)
        reference_.name = nameNumber(pair.value);
    else if (pair.code == 66 && !std::exchange(hasFollowMark_, true))
        attributesFollow_ = parseInteger(pair.value) == 1;
    else if (pair.code == 67 && !std::exchange(hasPaperMark_, true))
        onPaper_ = parseInteger(pair.value) == 1;
}

void Scanner::headerDetail(const DxfPair& pair) {
    if (pair.code == 9) {
        const std::string_view name = trimmed(pair.value);
        // The release is the one variable with a text whose name ends like this.
        inVariable_ = isKept(name) || name.ends_with("VER");
        if (inVariable_)
            index_.header.emplace_back().name = name;
        named_ = false;
        return;
    }
    if (!inVariable_)
        return;
    DxfVariable& variable = index_.header.back();
    if (!named_) {
        named_ = true;
        variable.valueBegin = pair.valueBegin;
        variable.value = pair.value;
        if (pair.code == 1 && variable.name.ends_with("VER"))
            takeRelease(trimmed(pair.value));
    } else if (pair.code == 20 || pair.code == 30) {
        variable.more[pair.code == 20 ? 0 : 1] = trimmed(pair.value);
    }
}

void Scanner::takeRelease(std::string_view value) {
    if (!value.starts_with("AC") || value.size() != 6)
        return;
    int number = 0;
    const auto [end, error] = std::from_chars(value.data() + 2, value.data() + value.size(), number);
    if (error == std::errc() && end == value.data() + value.size())
        index_.release = number;
}

std::size_t Scanner::nameNumber(std::string_view name) {
    const auto [entry, isNew] = names_.try_emplace(name, index_.names.size());
    if (isNew)
        index_.names.emplace_back(name);
    return entry->second;
}

} // namespace

const DxfRange* DrawingIndex::section(std::string_view name) const noexcept {
    return findNamed(sections, name);
}

const DxfRange* DrawingIndex::table(std::string_view name) const noexcept {
    return findNamed(tables, name);
}

const DxfVariable* DrawingIndex::variable(std::string_view name) const noexcept {
    return findNamed(header, name);
}

DxfFault scanDrawing(std::string_view bytes, DrawingIndex& index) {
    return Scanner(bytes, index).run();
}

std::size_t lineNumber(std::string_view bytes, std::size_t offset) noexcept {
    const std::string_view before = bytes.substr(0, std::min(offset, bytes.size()));
    return 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
}

} // namespace drafta
