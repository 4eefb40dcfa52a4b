// Every call of a save failing in turn.
#include "tests/siblings/save_fixture.h"

namespace ryv::test {
namespace {

const std::string oldContent = "the old content";

class AtomicFileFault : public SaveFixture {
protected:
    void SetUp() override {
        newContent.assign(300000, 'n');
        newContent += "end";
    }

    /// Saves with the n-th call failing for all n, over an old file or where there is none.
    void failEveryCall(Fault fault, bool overOld, bool guarded);
    void checkAfter(const SaveResult& result, const Fault& fault, bool overOld);

    std::string newContent;
};

void AtomicFileFault::checkAfter(const SaveResult& result, const Fault& fault, bool overOld) {
    const FileCall failed = files.calls().at(fault.number - 1);
    const std::vector<std::string> kept = overOld ? only("A.kqp") : std::vector<std::string>{};
    EXPECT_EQ(folder.names(), result.replaced ? only("A.kqp") : kept);
    if (overOld || result.replaced) {
        EXPECT_EQ(folder.read("A.kqp"), result.replaced ? newContent : oldContent);
    }
    if (fault.error == FileError::denied && failed == FileCall::rename) { // tried again, and then it works
        EXPECT_TRUE(result.ok());
        return;
    }
    EXPECT_EQ(result.status.error, fault.error);
    EXPECT_FALSE(result.file.empty());
}

void AtomicFileFault::failEveryCall(Fault fault, bool overOld, bool guarded) {
    for (fault.number = 1;; ++fault.number) {
        SCOPED_TRACE("call " + std::to_string(fault.number));
        std::filesystem::remove(folder.native("A.kqp"));
        if (overOld)
            folder.write("A.kqp", oldContent);
        const std::optional<Fingerprint> expected = guarded ? std::optional(fingerprint()) : std::nullopt;
        files.arm(fault);
        const SaveResult result = save(newContent, expected);
        if (!files.fired()) {
            EXPECT_TRUE(result.ok());
            EXPECT_EQ(folder.read("A.kqp"), newContent);
            EXPECT_GT(fault.number, 10u); // a save takes more calls than that
            return;
        }
        checkAfter(result, fault, overOld);
    }
}

TEST_F(AtomicFileFault, everyCall_failsInTurn_isReportedAndLeavesOldOrNew) {
    for (const FileError error : {FileError::noSpace, FileError::io, FileError::denied}) {
        SCOPED_TRACE(describe(error));
        failEveryCall({.error = error}, true, false);
        failEveryCall({.error = error}, true, true);
        failEveryCall({.error = error}, false, false);
    }
}

TEST_F(AtomicFileFault, shortWrite_isContinued) {
    folder.write("A.kqp", oldContent);
    files.arm({.shortWrite = true});
    EXPECT_TRUE(save(newContent).ok());
    EXPECT_TRUE(files.fired());
    EXPECT_EQ(folder.read("A.kqp"), newContent);
}

TEST_F(AtomicFileFault, diskFullHalfway_leavesTheOldFile) {
    folder.write("A.kqp", oldContent);
    files.limitSpace(1000);
    const SaveResult result = save(newContent);
    EXPECT_EQ(result.status.error, FileError::noSpace);
    EXPECT_FALSE(result.replaced);
    EXPECT_EQ(folder.read("A.kqp"), oldContent);
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(AtomicFileFault, writesWithoutProgress_areAnError) {
    folder.write("A.kqp", oldContent);
    files.arm({.lasting = true, .shortWrite = true}); // halves down to nothing
    EXPECT_EQ(save("x").status.error, FileError::io);
    EXPECT_EQ(folder.read("A.kqp"), oldContent);
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(AtomicFileFault, foldersThatCannotBeSynced_areNoFailure) {
    files.arm({.error = FileError::unsupported, .kind = FileCall::syncFolder});
    EXPECT_TRUE(save(newContent).ok());
    EXPECT_TRUE(files.fired());
}

TEST_F(AtomicFileFault, renameRefusedForGood_isReportedAfterAFewTries) {
    folder.write("A.kqp", oldContent);
    files.arm({.error = FileError::exists, .kind = FileCall::rename, .lasting = true});
    EXPECT_EQ(save(newContent).status.error, FileError::exists);
    EXPECT_GT(std::count(files.calls().begin(), files.calls().end(), FileCall::rename), 1);
    EXPECT_EQ(folder.read("A.kqp"), oldContent);
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(AtomicFileFault, failingRemoval_leavesOneFileThatTheNextSaveClears) {
    folder.write("A.kqp", oldContent);
    FaultFiles outer(static_cast<Files&>(files));
    files.arm({.error = FileError::denied, .kind = FileCall::remove});
    outer.arm({.error = FileError::noSpace, .kind = FileCall::write});
    EXPECT_EQ(saveAtomically(outer, {path, newContent, {}}).status.error, FileError::noSpace);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{".A.kqp.saving", "A.kqp"}));
    EXPECT_TRUE(save(newContent).ok());
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(AtomicFileFault, fileSystemWithoutLocks_savesByExclusiveCreation) {
    folder.write("A.kqp", oldContent);
    files.arm({.error = FileError::unsupported, .kind = FileCall::lock, .lasting = true});
    EXPECT_TRUE(save(newContent).ok());
    EXPECT_EQ(folder.read("A.kqp"), newContent);
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(AtomicFileFault, fileSystemWithoutLocks_neverTakesATemporaryFileForFree) {
    folder.write(".A.kqp.saving", "perhaps somebody's");
    files.arm({.error = FileError::unsupported, .kind = FileCall::lock, .lasting = true});
    const SaveResult result = save(newContent);
    EXPECT_EQ(result.status.error, FileError::busy);
    EXPECT_EQ(result.file, folder.module(u".A.kqp.saving"));
    EXPECT_EQ(sweepLeftover(files, path).error, FileError::unsupported);
    EXPECT_EQ(folder.names(), only(".A.kqp.saving"));
    EXPECT_EQ(folder.read(".A.kqp.saving"), "perhaps somebody's");
}

} // namespace
} // namespace ryv::test
