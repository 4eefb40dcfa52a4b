// A block definition made of another drawing's model space.
#pragma once

#include "embedded/drawings/record_converter.h"
#include "platform/host/drawings.h"

#include <deque>

namespace drafta {

/// Copies the model space of `source` into `target` as a block, with the blocks that are inserted in it and
/// the layers, line types and text styles that the target lacks. Nothing is changed in the target unless all
/// of it can be copied.
class BlockCopier {
public:
    BlockCopier(const DrawingContent& source, DrawingContent& target);

    /// `name` is not that of a block of the target. A fault's place, if it has one, is in the source.
    CopyFault copy(ryv::CStringView name);

private:
    /// A block to be defined.
    struct Definition {
        std::string name;              ///< as spelled in the target
        std::vector<DxfRange> content; ///< where its records lie in the source
        ryv::DrawingPoint base;
    };
    /// A block that is defined, by places in the new text.
    struct Made {
        std::string name;
        std::size_t begin, content, end;
    };

    CopyFault prepare();
    Definition modelSpace(std::string name) const;
    CopyFault define(const Definition& definition);
    CopyFault copyContent(const Definition& definition, RecordConverter& converter, DxfWriter& writer);
    CopyFault requireNested(const std::string& name, const std::string& within);
    CopyFault addAllEntries(RecordConverter& converter);
    CopyFault addEntries(
        RecordConverter& converter, std::string_view table, const std::set<std::string>& names);
    CopyFault addEntry(RecordConverter& converter, std::string_view table, const std::string& name);
    bool writeBlockRecord(const std::string& name, std::uint64_t handle);
    void finish();

    const DrawingContent& source_;
    DrawingContent& target_;
    RecordHead head_; // of records in a block, without an owner
    DxfWriter definitions_, blockRecords_;
    std::vector<std::pair<std::string_view, DxfWriter>> entries_; // by table
    std::deque<Definition> waiting_;
    std::vector<Made> made_;
    std::set<std::string> known_; // names of the blocks that are made or wait, in upper case
};

} // namespace drafta
