// Texts that tests compare as a whole with what is kept beside them.
#pragma once

#include "base/encoding.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace ryv::test {

/// Compares with golden/NAME.txt. After a change that is meant, run the tests once with RYV_WRITE_GOLDEN set
/// in the environment: the files are written anew, and the difference shows in version control.
inline void expectGolden(const std::string& name, const CString& text) {
    const std::string path = std::string(RYV_TEST_DATA) + "/golden/" + name + ".txt";
    if (std::getenv("RYV_WRITE_GOLDEN"))
        std::ofstream(path, std::ios::binary) << toUtf8(text);
    EXPECT_EQ(toUtf8(text), readBytes(path));
}

} // namespace ryv::test
