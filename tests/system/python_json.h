// JSON as another, independent program understands it.
#pragma once

#include "tests/support/process.h"

#include <gtest/gtest.h>

#include <string>

namespace ryv::test {

/// Runs a Python script over the output: `d` is the parsed object. The script's own assertions fail the test.
inline void expectJson(const std::string& output, const std::string& script) {
    ProcessSetUp setUp;
    setUp.input = output;
    const std::string start = "import json, sys\n"
                              "d = json.loads(sys.stdin.buffer.read().decode('utf-8', 'strict'))\n"
                              "def same(a, b):\n"
                              "    assert a == b, ascii(a) + ' is not ' + ascii(b)\n";
    const ProcessResult result = runProcess({"python3", "-c", start + script}, setUp);
    EXPECT_EQ(result.exitCode, 0) << result.error << "\n" << output.substr(0, 4000);
}

} // namespace ryv::test
