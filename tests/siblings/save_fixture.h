// What the tests of saving share: a folder with one file in it and the means to save it.
#pragma once

#include "embedded/os/posix_files.h"
#include "siblings/atomic_file.h"
#include "tests/support/fault_files.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace ryv::test {

class SaveFixture : public ::testing::Test {
protected:
    SaveResult save(std::string_view bytes, std::optional<Fingerprint> expected = std::nullopt) {
        return saveAtomically(files, {path, bytes, expected});
    }
    Fingerprint fingerprint() {
        Fingerprint found;
        EXPECT_TRUE(fingerprintOf(real, path, found).ok());
        return found;
    }
    static std::vector<std::string> only(const std::string& name) { return {name}; }

    TempFolder folder;
    CString path = folder.module(u"A.kqp");
    drafta::PathMapper mapper;
    drafta::PosixFiles real{mapper};
    FaultFiles files{real};
};

} // namespace ryv::test
