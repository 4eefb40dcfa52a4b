// Every change that the project manager writes, with every step of its saving failing in turn.
#include "tests/system/real_manager.h"

#include <array>

namespace ryv::test {
namespace {

const std::string oldProject = "one.dwg\n=====SUB=POWER\ntwo.dwg\nthree.dwg\n";
const std::string oldStore = "RYPX 1\nnext=8\nid=7\tone.dwg\n";

const std::vector<std::string> allFiles{"a.kqp", "a.rypx"};

struct Operation {
    std::string name;
    std::function<bool()> run;
    std::string announced;       ///< the event that tells of it once it is written
    std::string announcedBefore; ///< and one that comes before, whatever becomes of it
    bool resultIsOfDisk = true;  ///< otherwise only the project's last error tells that it was not written
};

/// What became of one operation that met a fault.
struct Outcome {
    bool result = false;
    bool written = false; ///< the project is on disk
    bool told = false;    ///< that it is not, or perhaps not for good
};

class ManagerFaultReliability : public RealManager {
protected:
    ManagerFaultReliability() {
        resetDisk();
        manager->openProject(id, true);
    }

    std::vector<Operation> operations();
    void resetDisk() {
        folder.write("a.kqp", oldProject);
        folder.write("a.rypx", oldStore);
    }
    void resetAll() {
        resetDisk();
        manager->closeProject(id, true);
        manager->openProject(id, true);
        recorder->story();
    }
    std::string inMemory();
    void succeed(const Operation& operation);
    Outcome runLocked(const Operation& operation, const Fault& fault);
    void checkOutcome(const Operation& operation, const Outcome& outcome);
    void checkReported(const Outcome& outcome, const Fault& fault);
    bool failStep(const Operation& operation, const Fault& fault);
    void failEveryStep(const Operation& operation, const std::vector<FileError>& errors, bool lasting);
    void failAll(const std::vector<FileError>& errors, bool lasting);

    std::string newProject;            ///< what the operation at hand makes of it
    std::vector<FileCall> stepsOfSave; ///< when nothing fails
    unsigned faults = 0;
};

std::vector<Operation> ManagerFaultReliability::operations() {
    const auto path = [this](const char* name) { return folder.module(decodeUtf8(name)); };
    const CString one = path("one.dwg"), two = path("two.dwg"), four = path("four.dwg"),
                  five = path("five.dwg");
    return {
        {"add", [=, this] { return manager->addFileToProject(drawing(four)); }, "add a.kqp four.dwg", ""},
        {"add several",
            [=, this] {
                std::vector<bool> added;
                return manager->addFilesToProject({RyvPrmFileDetails(four), RyvPrmFileDetails(five)}, added);
            },
            "addAll a.kqp four.dwg five.dwg", ""},
        {"remove", [=, this] { return manager->removeFileFromProject(one); }, "remove a.kqp one.dwg", ""},
        {"remove several",
            [=, this] {
                return manager->removeFilesFromProject({one, two});
            },
            "removeAll a.kqp one.dwg two.dwg", ""},
        {"remove subfolders", [this] { return manager->removeSubfoldersFromProject({u"POWER"}); }, "", ""},
        {"replace", [=, this] { return manager->replaceFileInProject(one, four); },
            "replace a.kqp one.dwg:7 four.dwg:7", ""},
        {"rename", [=, this] { return manager->renameFileInProject(one, four); }, "", ""},
        {"modify",
            [=, this] {
                RyvPrmFileDetails details(one);
                details.setDescription1(u"new");
                return manager->modifyDetailsForFileInProject(details);
            },
            "", "preModify a.kqp one.dwg", false},
    };
}

/// The project as it would be written.
std::string ManagerFaultReliability::inMemory() {
    const CString aside = folder.module(u"aside.kqp");
    EXPECT_TRUE(project().writeProject(&aside));
    const std::string text = folder.read("aside.kqp");
    std::filesystem::remove(folder.native("aside.kqp"));
    return text;
}

void ManagerFaultReliability::succeed(const Operation& operation) {
    recorder->story();
    EXPECT_TRUE(operation.run());
    EXPECT_EQ(recorder->story(), operation.announcedBefore + operation.announced);
    EXPECT_EQ(project().getLastError(), 0);
    EXPECT_EQ(folder.names(), allFiles);
}

Outcome ManagerFaultReliability::runLocked(const Operation& operation, const Fault& fault) {
    EXPECT_TRUE(manager->lockProjectFile(id));
    recorder->story();
    files.arm(fault);
    const bool result = operation.run();
    const bool fired = files.fired();
    files.disarm();
    EXPECT_TRUE(manager->unlockProjectFile(id));
    EXPECT_FALSE(manager->isProjectFileLocked(id));
    if (!fired)
        stepsOfSave = files.calls();
    return {result, folder.read("a.kqp") == newProject, project().getLastError() != 0};
}

/// Old content or new, whole; what is not safely on disk is told and not announced; the change stays in
/// memory.
void ManagerFaultReliability::checkOutcome(const Operation& operation, const Outcome& outcome) {
    const std::string disk = folder.read("a.kqp");
    EXPECT_TRUE(disk == oldProject || disk == newProject) << disk;
    EXPECT_EQ(recorder->story(), operation.announcedBefore + (outcome.result ? operation.announced : ""));
    EXPECT_TRUE(outcome.told || (outcome.result && outcome.written)) << "a failure that nobody hears of";
    if (operation.resultIsOfDisk) {
        EXPECT_TRUE(outcome.result ? outcome.written : outcome.told);
    }
    EXPECT_EQ(inMemory(), newProject);
}

/// A step in front of the renaming without which the new content would not be whole and safe.
void ManagerFaultReliability::checkReported(const Outcome& outcome, const Fault& fault) {
    constexpr std::array vital{FileCall::write, FileCall::sync, FileCall::copyAttributes};
    const auto failed = stepsOfSave.begin() + static_cast<std::ptrdiff_t>(fault.number) - 1;
    const bool beforeRename = std::find(stepsOfSave.begin(), failed, FileCall::rename) == failed;
    if (beforeRename && std::find(vital.begin(), vital.end(), *failed) != vital.end()) {
        EXPECT_TRUE(outcome.told);
        EXPECT_EQ(folder.read("a.kqp"), oldProject);
    }
}

/// After reading again the operation that met the fault succeeds. True when the failure was told.
bool ManagerFaultReliability::failStep(const Operation& operation, const Fault& fault) {
    ++faults;
    SCOPED_TRACE(std::string(describe(fault.error)) + " at step " + std::to_string(fault.number));
    resetAll();
    const Outcome outcome = runLocked(operation, fault);
    checkOutcome(operation, outcome);
    checkReported(outcome, fault);
    if (!fault.lasting) {
        EXPECT_EQ(folder.names(), allFiles); // with a fault that lasts, removing the temporary file fails too
    }
    resetDisk();
    EXPECT_TRUE(manager->reReadProject(id));
    succeed(operation);
    EXPECT_EQ(folder.read("a.kqp"), newProject);
    return outcome.told;
}

/// Every step fails with every error, or in the reduced form with one of them, another one at each step.
void ManagerFaultReliability::failEveryStep(
    const Operation& operation, const std::vector<FileError>& errors, bool lasting) {
    unsigned told = 0;
    for (std::size_t number = 1; number <= stepsOfSave.size(); ++number)
        for (std::size_t i = 0; i < errors.size(); ++i)
            if (wantsFullReliability() || i == number % errors.size())
                told += failStep(operation, {errors[i], number, std::nullopt, lasting}) ? 1u : 0u;
    EXPECT_GT(told, 10u);
}

void ManagerFaultReliability::failAll(const std::vector<FileError>& errors, bool lasting) {
    for (const Operation& operation : operations()) {
        SCOPED_TRACE(operation.name);
        resetAll();
        succeed(operation);
        newProject = folder.read("a.kqp");
        ASSERT_NE(newProject, oldProject);
        resetAll();
        ASSERT_TRUE(runLocked(operation, {.number = 10'000}).result);
        failEveryStep(operation, errors, lasting);
        ASSERT_FALSE(HasFailure());
    }
    RecordProperty("faults", static_cast<int>(faults));
}

TEST_F(ManagerFaultReliability, everyStep_failsOnce_isToldAndLeavesOldOrNew_andWorksAgainAfterARead) {
    failAll({FileError::noSpace, FileError::io, FileError::denied, FileError::readOnly}, false);
}

/// Without `denied`, after which each step is tried again for a while.
TEST_F(
    ManagerFaultReliability, everyStepAndAllBehindIt_fail_isToldAndLeavesOldOrNew_andWorksAgainAfterARead) {
    failAll({FileError::noSpace, FileError::io, FileError::readOnly}, true);
}

} // namespace
} // namespace ryv::test
