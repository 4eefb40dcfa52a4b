// The layouts of palette sets from run to run, in one file of the user's.
#pragma once

#include "platform/host/workspace_node.h"
#include "platform/os/files.h"
#include "siblings/file_content.h"

#include <functional>
#include <memory>
#include <vector>

namespace drafta {

/// The file is read when a layout is asked for first. When it cannot be read or makes no sense, that is told
/// and no layout is known. One that cannot be read is left alone, and nothing is saved. One that makes no
/// sense is kept as "NAME.bad", "NAME.bad2" and so on before something else is saved in its place.
class Workspace {
public:
    using Layout = std::shared_ptr<const ryv::WorkspaceNode>;

    /// `files` outlives the object, `path` is module text. `warn` gets lines without their ends, each
    /// beginning with the path of the file concerned.
    Workspace(ryv::Files& files, ryv::CString path, std::function<void(ryv::CStringView)> warn)
        : files_(files), path_(std::move(path)), warn_(std::move(warn)) {}

    /// The layout that is known of a tool ID, which is compared without regard to case; null when there is
    /// none.
    Layout find(ryv::CStringView toolId);

    /// Reads the file again. False when it cannot be read, which has been told; a missing one knows nothing.
    bool load();

    /// An empty layout for a tool ID, to be filled and saved.
    static std::shared_ptr<ryv::WorkspaceNode> newLayout(ryv::CStringView toolId);

    /// Puts layouts in the place of those with the same tool IDs and writes the file, with what other
    /// processes have saved meanwhile. Nothing is written when nothing changes, and a layout without a tool
    /// ID is left out. False after a failure, which has been told.
    bool save(std::vector<Layout> layouts);

private:
    enum class State { unread, missing, good, damaged, unreadable };
    /// What is wrong with the file; empty when it was read or is missing.
    ryv::CString read();
    ryv::FileStatus keepCopy(ryv::CString& copy);
    ryv::FileStatus write(const std::vector<Layout>& layouts);
    ryv::FileStatus replace(const std::vector<Layout>& layouts, const ryv::CString& problem);
    bool fail(const ryv::FileStatus& status);

    ryv::Files& files_;
    ryv::CString path_;
    std::function<void(ryv::CStringView)> warn_;
    State state_ = State::unread;
    std::vector<Layout> layouts_;
    ryv::ByteBuffer bytes_; // of the file as it was read
    ryv::Fingerprint fingerprint_;
};

} // namespace drafta
