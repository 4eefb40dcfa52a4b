// A project file in memory, with the means to read and write it.
#pragma once

#include "model/kqp_filer.h"
#include "tests/support/finding_recorder.h"
#include "tests/support/memory_files.h"
#include "tests/support/project_builder.h"
#include "tests/support/scripted_platform.h"

#include <gtest/gtest.h>

namespace ryv::test {

class ProjectFixture : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(files.openHandles(), 0u); }

    /// Reads a file of these bytes; what is reported goes to `recorder`.
    void read(std::string bytes, RyvPrmProjectData& project) {
        files.put(path, std::move(bytes));
        RyvPrmKQPFiler filer(path, false, true);
        filer.setReporter(&recorder);
        EXPECT_TRUE(filer.readProject(project));
        EXPECT_EQ(filer.getLastError(), RyvPmUtilsKQPFiler::noError);
    }

    /// What a filer writes for the project, in the encoding of the file that is there.
    std::string write(const RyvPrmProjectData& project, bool relativePaths = true) {
        RyvPrmKQPFiler filer(path, true, relativePaths);
        filer.setReporter(&recorder);
        EXPECT_TRUE(filer.writeProject(project)) << filer.getLastError();
        return files.get(path).value_or("no file");
    }

    /// What a filer writes after it has read the bytes.
    std::string rewrite(std::string bytes) {
        files.put(path, std::move(bytes));
        RyvPrmKQPFiler filer(path, true, true);
        RyvPrmProjectData project;
        filer.readProject(project);
        EXPECT_TRUE(filer.writeProject(project)) << filer.getLastError();
        return files.get(path).value_or("no file");
    }

    CString path = u"C:\\P\\a.kqp";
    MemoryFiles files;
    ScriptedPlatform surroundings{&files};
    FindingRecorder recorder;
};

/// The seconds within which a test with hostile input has to end, also with sanitizers on a slow machine.
inline constexpr int patienceSeconds = 60;

} // namespace ryv::test
