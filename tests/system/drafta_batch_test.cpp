// The package's LISP as users run it: the scripts of batch/ under "drafta --batch", each on a copy of the
// sample project. Beside a script stand what it prints, and the answers to what it asks.
#include "tests/support/process.h"
#include "tests/support/story.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

namespace fs = std::filesystem;

class BatchRun {
public:
    BatchRun() {
        fs::copy(DRAFTA_SAMPLE, folder.native("pump-station"), fs::copy_options::recursive);
        fs::create_directory(folder.native("profile"));
    }

    ProcessResult run(const std::string& script) const {
        const fs::path path = fs::path(RYV_TEST_DATA) / "batch" / script;
        std::vector<std::string> words = {
            DRAFTA_PROGRAM, "--batch", path.string() + ".lsp", "--profile", folder.native("profile")};
        if (fs::exists(path.string() + ".answers")) {
            const std::string answers = contentOf(path.string() + ".answers");
            folder.write("answers", replaced(answers, "<folder>", folder.native()));
            words.insert(words.end(), {"--answers", "answers"});
        }
        ProcessSetUp setUp;
        setUp.folder = folder.native();
        setUp.environment = {{"RYP_TEST", "of the system"}};
        return runProcess(words, setUp);
    }

    /// All that was printed, without the path of this run's folder.
    std::string shown(const ProcessResult& result) const {
        const std::string error = result.error.empty() ? "" : "--- errors\n" + result.error;
        return replaced(result.out + error, folder.native(), "<folder>");
    }

    /// Runs a script of checks, which has to end without a complaint.
    void check(const std::vector<std::string>& words) const {
        std::vector<std::string> call = {"/usr/bin/python3"};
        call.insert(call.end(), words.begin(), words.end());
        ProcessSetUp setUp;
        setUp.folder = folder.native();
        const ProcessResult result = runProcess(call, setUp);
        EXPECT_EQ(result.exitCode, 0) << result.out << result.error;
    }

    TempFolder folder;
};

class DraftaBatchTest : public ::testing::TestWithParam<std::string> {};

TEST_P(DraftaBatchTest, batch_script_printsWhatIsExpected) {
    const BatchRun batch;
    const ProcessResult result = batch.run(GetParam());
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(batch.shown(result), contentOf(fs::path(RYV_TEST_DATA) / "batch" / (GetParam() + ".txt")));
}

std::vector<std::string> scripts() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(RYV_TEST_DATA) / "batch"))
        if (entry.path().extension() == ".lsp")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Scripts, DraftaBatchTest, ::testing::ValuesIn(scripts()),
    [](const auto& script) { return script.param; });

TEST(DraftaBatchFilesTest, titleBlocksThatAreUpToDate_leaveAllFilesAlone) {
    const BatchRun batch;
    ASSERT_EQ(batch.run("untouched").exitCode, 0);
    std::size_t files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(DRAFTA_SAMPLE)) {
        if (!entry.is_regular_file())
            continue;
        const fs::path name = fs::relative(entry.path(), DRAFTA_SAMPLE);
        EXPECT_EQ(contentOf(fs::path(batch.folder.native("pump-station")) / name), contentOf(entry.path()))
            << name;
        ++files;
    }
    EXPECT_EQ(files, 16u);
}

TEST(DraftaReadersTest, titleBlocksAndSettings_asEzdxfReadsThem_areThoseOfTheProject) {
    const BatchRun batch;
    ASSERT_EQ(batch.run("drawings").exitCode, 0);
    batch.check({std::string(RYV_TEST_DATA) + "/check_drawings.py", "pump-station", "settings.txt"});
}

TEST(DraftaReadersTest, report_asPythonReadsIt_hasTextsWhole) {
    const BatchRun batch;
    ASSERT_EQ(batch.run("drawing_list").exitCode, 0);
    batch.check({"-c", R"(
import csv
with open('pump-station/Pump Station_drawings.csv', encoding='utf-8', newline='') as file:
    rows = list(csv.reader(file, strict=True))
assert len(rows) == 4 and all(len(row) == 12 for row in rows), rows
assert rows[1][2:5] == ['A,B', 'say "x"', ' blank '], rows[1]
assert rows[2][9:] == ['POWER', '1', 'Power/10 Main Supply.dwg'], rows[2]
assert rows[3][0] == '' and rows[3][11] == 'missing.dwg', rows[3]
)"});
}

TEST(DraftaReadersTest, archive_asPythonReadsIt_holdsTheProject) {
    const BatchRun batch;
    ASSERT_EQ(batch.run("archive").exitCode, 0);
    batch.check({"-c", R"(
import os, zipfile
files = {os.path.relpath(os.path.join(folder, name), 'pump-station')
         for folder, _, names in os.walk('pump-station') for name in names}
with zipfile.ZipFile('pump-station/Pump Station.zip') as archive:
    assert archive.testzip() is None
    names = archive.namelist()
    assert sorted(names) == sorted(n for n in files if n.endswith(('.dwg', '.kqp'))), names
    for name in names:
        if name.endswith('.dwg'):
            assert archive.read(name) == open('pump-station/' + name, 'rb').read(), name
with zipfile.ZipFile('chosen.zip') as archive:
    assert archive.testzip() is None
    assert archive.namelist() == ['Pump Station.kqp', 'Pump Station.rypx', '01 Cover Sheet.dwg',
                                  'outside/01.dwg', 'outside/2 01.DWG'], archive.namelist()
)"});
}

} // namespace
} // namespace ryv::test
