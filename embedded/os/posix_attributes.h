// What a file has besides its name and content: owner, group, mode, extended attributes.
#pragma once

#include "platform/os/files.h"

#include <string>

namespace drafta {

/// Gives the open file `to` what the file at the native path `from` (links followed) has. What the user may
/// not set, or the file system does not keep, is left out without a failure; rights only ever become fewer by
/// that: without the owner (the group) the set-user (set-group) bit goes, and a group that could not be kept
/// gets no more rights than everybody. Fails when `from` cannot be looked at, or when the disk is full or
/// faulty.
ryv::FileStatus copyFileAttributes(const std::string& from, int to);

/// Gives the open file `to` the group of the file at `from`, if the user may, and adds its rights to read. A
/// group that could not be given gets no more rights than everybody. Access lists are not looked at.
ryv::FileStatus copyRightsToRead(const std::string& from, int to);

/// Takes all write rights off the file at a native path, or gives its owner the right to write.
ryv::FileStatus setWriteProtection(const std::string& path, bool isProtected);

/// The mark of hidden files: an extended attribute, where the file system keeps them.
ryv::FileStatus setHiddenMark(const std::string& path, bool hidden);
bool hasHiddenMark(const char* path) noexcept;
bool hasHiddenMark(int descriptor) noexcept;

} // namespace drafta
