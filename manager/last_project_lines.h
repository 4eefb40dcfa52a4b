// The content of the user's list of last projects, see manager/last_project_list.h: lines of text in bytes.
#pragma once

#include "base/strings.h"

#include <string>
#include <string_view>
#include <vector>

namespace ryv {

/// What a project was when it was recorded.
namespace last_project_code {
inline constexpr CStringView closed = u"0";
inline constexpr CStringView open = u"1";
inline constexpr CStringView active = u"2";
inline constexpr CStringView removed = u"X"; ///< a wish, never stored
} // namespace last_project_code

/// A project of the list: its ID, with "/", and its code.
struct LastProject {
    CString id;
    CString code;
};

/// Reads the first 30 lines of a list in any encoding, with or without a mark. Every line gives a project,
/// closed or active when its code says so, else open; the ID of a line without one is empty. False when the
/// mark of an old list ends it: `projects` then holds the lines in front of that.
bool readLastProjectLines(std::string_view bytes, std::vector<LastProject>& projects);

/// The bytes of a list: UTF-16, little endian, with a mark.
std::string toLastProjectLines(const std::vector<LastProject>& projects);

/// False for an ID or a code that would come back as something else: one with a double quote, a line break or
/// the mark of old lists. Also for one that is longer than any path, 32,767 units: it was passed by mistake.
bool fitsInLastProjectLine(CStringView text);

} // namespace ryv
