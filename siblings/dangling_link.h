// A symbolic link that leads nowhere, at the name that a file is to be made under.
#pragma once

#include "platform/os/files.h"

namespace ryv {

/// Removes such a link, which leads to a missing file or in a circle, and nothing but a link. Looking and
/// removing are two steps, so whoever makes his file in the place of a link waits a moment before, in which
/// others who saw the link come to remove it in vain.
class DanglingLink {
public:
    /// `files` outlives the object.
    DanglingLink(Files& files, CStringView path) : files_(files), path_(path) {}

    /// To be called each time the name was taken and no file was found behind it. Removes the link when it
    /// was seen several times running. Fails when it cannot be removed.
    FileStatus look();

private:
    bool stands();

    Files& files_;
    CString path_;
    int seen_ = 0; // how often running
};

} // namespace ryv
