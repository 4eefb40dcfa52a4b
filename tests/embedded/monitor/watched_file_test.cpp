#include "embedded/monitor/watched_file.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace {

using drafta::WatchedFile;

/// What is told of a file that is there and goes through this: "-" and "+", events say that its name was
/// removed and taken; "y" and "n", it is looked at and is there or not. Looks may be ahead of events.
std::string toldBy(const std::string& story) {
    std::string told;
    WatchedFile file;
    drafta::FileSight sight;
    for (const char step : "y" + story) {
        if (step == '-') {
            file.nameRemoved();
        } else if (step == '+') {
            file.nameTaken();
        } else {
            sight.isThere = step == 'y';
            told += told.empty() ? "" : " ";
            for (const ryv::FileChange change : file.see(sight))
                told += change == ryv::FileChange::deleted   ? 'd'
                        : change == ryv::FileChange::created ? 'c'
                                                             : 'w';
        }
    }
    return told.substr(2); // without the first sight
}

TEST(WatchedFile, see_afterAndBeforeEvents_tellsEachRemovalOnce) {
    struct Case {
        std::string story, told;
    };
    const std::array<Case, 10> cases{{
        {"-n+y", "d cw"},
        {"-+y", "dcw"},
        {"-+-+y", "dcw"},
        {"+y", ""},       // renamed over
        {"-y+y", " dcw"}, // the look saw the new file before its event
        {"n-+y", "d cw"}, // ... the removal before its own
        {"n-y+y", "d cw "},
        {"-n+y-+y", "d cw dcw"},
        {"-+-y+y", "dcw "},
        {"-+n", "d"},
    }};
    for (const Case& each : cases)
        EXPECT_EQ(toldBy(each.story), each.told) << each.story;
}

} // namespace
