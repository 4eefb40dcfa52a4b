// The order of a project's drawings and subfolders, and how it is changed and brought back.
#pragma once

#include "model/project_data.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ryv {

/// The same for two projects that hold the same drawings and subfolders in the same order and depth; other
/// content does not count.
std::uint64_t arrangementHash(const RyvPrmProjectData& project);

/// Folders of one project, each with the items that it is to have. All of them together hold the same items
/// before and after.
struct Rearrangement {
    struct Folder {
        RyvPrmSubfolder* folder;
        std::vector<RyvPrmItem*> items;
    };
    std::vector<Folder> folders;

    bool changesAnything() const;
    /// Whether the items listed are those that the folders hold now, each once.
    bool isComplete() const;
    /// False, and nothing is changed, unless it is complete: an item that nobody lists would be lost. Takes
    /// time in proportion to the items of the folders.
    [[nodiscard]] bool apply() const;
};

/// A rearrangement that was applied, and can be taken back when nothing was rearranged since. It survives
/// that the project is read again.
class AppliedRearrangement {
public:
    /// Applies `change` to the project; nothing when it cannot be applied.
    static std::optional<AppliedRearrangement> apply(
        const Rearrangement& change, const RyvPrmProjectData& project);

    bool isLatest(const RyvPrmProjectData& project) const { return arrangementHash(project) == after_; }

    /// What leads back; nothing unless the project is arranged as the change left it.
    std::optional<Rearrangement> reverse(const RyvPrmProjectData& project) const;

private:
    AppliedRearrangement() = default;

    struct Spot {
        std::size_t folder;
        std::size_t position;
    };
    struct Folder {
        std::vector<std::size_t> path; ///< positions on the way from the top level, as they are afterwards
        std::vector<Spot> items;       ///< where those that it had before are afterwards
    };
    std::vector<Folder> folders_;
    std::uint64_t after_ = 0;
};

} // namespace ryv
