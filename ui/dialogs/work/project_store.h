// Changes of an open project that others may change, too: in memory, on disk, or by closing it.
#pragma once

#include "model/project.h"

#include <functional>

namespace ryv {

/// How storing ended.
struct StoreResult {
    enum class Kind { stored, closed, failed };
    Kind kind = Kind::stored;
    CString file; ///< that could not be written, as people write it
    CString reason;

    bool ok() const noexcept { return kind == Kind::stored; }
};

/// Puts a change into a project and onto disk. Whoever uses it has locked the project.
class ProjectStore {
public:
    /// Puts the change into the project as it is now, in memory; false when the project says already what was
    /// wanted. Called again on what others have made of the project when that comes in between. May call LISP
    /// and fire events.
    using Change = std::function<bool(RyvPrmProject& project)>;
    /// Takes the last change back in memory.
    using Undo = std::function<void(RyvPrmProject& project)>;

    explicit ProjectStore(CStringView projectId) : projectId_(projectId) {}

    /// Nothing of what others have written is lost. After a failure the project is what its file says; when
    /// that cannot be read either, the change is taken back.
    [[nodiscard]] StoreResult store(const Change& change, const Undo& undo);

private:
    enum class Step { done, failed, again };
    Step tryOnce(const Change& change, const Undo& undo, StoreResult& result);
    Step fail(RyvPrmProject& project, const Undo& undo, StoreResult& result);

    CString projectId_;
};

} // namespace ryv
