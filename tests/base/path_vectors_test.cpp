// The path rules against the recorded cases in vectors/. Every line is tried; each failing one is reported.
#include "base/paths.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::paths {
namespace {

using test::Row;
using test::shown;
using Cells = std::vector<CString>;

/// Runs `actual` on every case of a file. It gets the cells and returns what the last column has to say.
template <class Function>
void checkTable(const char* name, std::size_t columns, Function actual) {
    for (const Row& row : test::readTable(std::string(RYV_TEST_DATA "/vectors/") + name, columns)) {
        const CString result = actual(row.cells);
        if (result != row.cells.back())
            ADD_FAILURE() << name << ", line " << row.line << ": " << shown(row.cells[0]) << " | "
                          << (columns > 2 ? shown(row.cells[1]) : "") << "\n  expected "
                          << shown(row.cells.back()) << "\n  actual   " << shown(result);
    }
}

CString orFail(const std::optional<CString>& result) {
    return result.value_or(u"FAIL");
}

TEST(PathVectors, isRelative_recordedCases_agree) {
    checkTable(
        "path_is_relative.tsv", 2, [](const Cells& c) { return CString(isRelative(c[0]) ? u"1" : u"0"); });
}

TEST(PathVectors, combine_recordedCases_agree) {
    checkTable("path_combine.tsv", 3, [](const Cells& c) { return orFail(combine(c[0], c[1])); });
}

TEST(PathVectors, append_recordedCases_agree) {
    checkTable("path_append.tsv", 3, [](const Cells& c) { return orFail(append(c[0], c[1])); });
}

TEST(PathVectors, relativePathTo_recordedCases_agree) {
    checkTable(
        "path_relative_path_to.tsv", 3, [](const Cells& c) { return orFail(relativePathTo(c[0], c[1])); });
}

TEST(PathVectors, removeFileSpec_recordedCases_agree) {
    checkTable("path_remove_file_spec.tsv", 3, [](const Cells& c) {
        CString path = c[0];
        const CString removed = removeFileSpec(path) ? u"1" : u"0";
        EXPECT_EQ(removed, c[1]) << "whether something was cut off " << shown(c[0]);
        return path;
    });
}

TEST(PathVectors, findFileName_recordedCases_agree) {
    checkTable("path_find_file_name.tsv", 2, [](const Cells& c) { return CString(findFileName(c[0])); });
}

TEST(PathVectors, findExtension_recordedCases_agree) {
    checkTable("path_find_extension.tsv", 2, [](const Cells& c) { return CString(findExtension(c[0])); });
}

TEST(PathVectors, removeExtension_recordedCases_agree) {
    checkTable("path_remove_extension.tsv", 2, [](const Cells& c) { return removeExtension(c[0]); });
}

TEST(PathVectors, renameExtension_recordedCases_agree) {
    checkTable(
        "path_rename_extension.tsv", 3, [](const Cells& c) { return orFail(renameExtension(c[0], c[1])); });
}

TEST(PathVectors, fullPathName_recordedCases_agree) {
    checkTable("full_path_name.tsv", 2, [](const Cells& c) { return fullPathName(c[0]); });
}

} // namespace
} // namespace ryv::paths
