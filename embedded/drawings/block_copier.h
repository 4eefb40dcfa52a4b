// A block definition made of another drawing's model space.
#pragma once

#include "embedded/drawings/record_converter.h"
#include "platform/host/drawings.h"

#include <deque>

namespace drafta {

/// Copies the model space of `source` into `target` as a block, with the blocks that are inserted in it and
/// the layers, line types and text styles that the target lacks. Handles are taken, but nothing else is
/// changed in the target before apply().
class BlockCopier {
public:
    BlockCopier(const DrawingContent& source, DrawingContent& target);

    /// Makes all records, once. `name` is not that of a block of the target. A fault's place, if it has one,
    /// is in the source.
    CopyFault copy(ryv::CStringView name);

    /// What copy() has made, as text for the target, and where in it the block lies.
    const std::string& text() const noexcept { return definitions_.text(); }
    const DxfBlock& block() const noexcept { return made_.front(); }

    /// Puts it into the target, which has not changed since. There was no fault.
    void apply();

private:
    /// A block to be defined.
    struct Definition {
        std::string name;              ///< as spelled in the target
        std::vector<DxfRange> content; ///< where its records lie in the source
        ryv::DrawingPoint base;
    };
    /// New entries of one table of the target.
    struct Entries {
        std::string_view table;
        DxfWriter writer;
        int count = 0;
    };
    /// Text for tables that the target lacks, and where in it they lie.
    struct NewTables {
        DxfWriter writer;
        std::vector<DxfRange> ranges;
    };

    CopyFault checkTarget();
    Definition modelSpace(std::string name) const;
    CopyFault define(const Definition& definition);
    CopyFault copyContent(const Definition& definition, RecordConverter& converter, DxfWriter& writer);
    CopyFault requireNested(const std::string& name, const std::string& within);
    CopyFault addAllEntries(RecordConverter& converter);
    CopyFault addEntries(
        RecordConverter& converter, std::string_view table, const std::set<std::string>& names);
    CopyFault addEntry(RecordConverter& converter, std::string_view table, const std::string& name);
    bool writeBlockRecord(const std::string& name, std::uint64_t handle);
    NewTables newTables() const;

    const DrawingContent& source_;
    DrawingContent& target_;
    RecordHead head_; // of records in a block, without an owner
    DxfWriter definitions_, blockRecords_;
    std::vector<Entries> entries_;
    std::deque<Definition> waiting_;
    std::vector<DxfBlock> made_;  // by places in the new text
    std::set<std::string> known_; // names of the blocks that are made or wait, in upper case
};

} // namespace drafta
