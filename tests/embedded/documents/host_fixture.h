// A host with the product's files, an empty profile and one document, but without the package's LISP.
#pragma once

#include "base/text.h"
#include "embedded/documents/host.h"
#include "tests/support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace drafta {

class HostFixture : public ::testing::Test {
protected:
    ryv::test::TempFolder folder;
    const std::string product = RYV_TEST_DATA "/../../../embedded/product";
    const std::string sample = RYV_TEST_DATA "/../../../samples/pump-station/";
    std::string printed;
    std::string errors;
    Host host{{folder.native("profile"), product, [this](std::string_view text) { printed += text; },
        [this](std::string_view text) { errors += text; }, nullptr}};

    void SetUp() override { ASSERT_TRUE(host.newDocument()) << printed; }

    /// What a line typed on the command line prints.
    std::string line(const std::string& text) {
        printed.clear();
        host.runLine(ryv::decodeUtf8(text));
        return std::string(printed, printed.find_first_not_of('\n') == std::string::npos
                                        ? printed.size()
                                        : printed.find_first_not_of('\n'));
    }
    std::string copyOf(const std::string& drawing, const std::string& name) {
        std::filesystem::copy_file(sample + drawing, folder.native(name));
        return folder.native(name);
    }
    ryv::CString module(const std::string& name) { return folder.module(ryv::nameFromBytes(name)); }
};

} // namespace drafta
