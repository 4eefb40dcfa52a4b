// What people are told when files cannot be locked: who or what is in the way, and for which file.
#include "manager/file_locks.h"
#include "manager/virtual_file_locker.h"
#include "tests/support/fault_files.h"
#include "tests/support/memory_manager.h"

#include <functional>

namespace ryv::test {
namespace {

/// Decides as the package does: project files must be free or the user's own, drawings may be missing, and
/// those that are looked at only may be protected.
class PackageCheck final : public LockCheck {
public:
    bool LispCheckFileLockStatusAndLock(
        const CStringList& files, int, int looks, CStringList& locked) override {
        CStringList taken;
        for (const CString& file : files)
            if (!take(file, looks == 1, taken)) {
                LispUpdUnlockFiles(taken);
                return false;
            }
        locked.insert(locked.end(), taken.begin(), taken.end());
        return true;
    }
    void LispUpdUnlockFiles(const CStringList& files) override {
        for (const CString& file : files)
            GetProjectManager()->unlockProjectFile(file);
    }

private:
    static bool take(const CString& file, bool looks, CStringList& taken) {
        CString holder;
        const _lockStatus status = GetProjectManager()->whoHasProjectFileLocked(file, &holder);
        const bool isProject = file.ends_with(u".kqp");
        const bool isProtected = status == lockReadOnly || status == lockFolderReadOnly;
        if (status == lockMine || (!isProject && status == lockMissing))
            return true;
        if (!isProject && looks && (status == lockNone || isProtected))
            return true;
        if (status != lockNone || !GetProjectManager()->lockProjectFile(CStringView(file)))
            return false;
        taken.push_back(file);
        return true;
    }
};

class LockRefusal : public MemoryManager {
protected:
    LockRefusal() {
        surroundings.ports.services.lockCheck = &check;
        surroundings.ports.os.files = &faults;
        surroundings.documents.open = true;
        prepare();
    }

    void prepare() {
        bobs.unlockAllFiles();
        faults.disarm();
        surroundings.identity.user = u"ann";
        surroundings.documents.open = true;
        for (const CString& file : all) {
            files.erase(file);
            files.put(file, "content");
        }
    }
    void lockAsBob(const CString& file) {
        surroundings.identity.user = u"bob";
        EXPECT_TRUE(bobs.lockFile(file));
        surroundings.identity.user = u"ann";
    }
    void lockWithoutRecord(const CString& file) {
        lockAsBob(file);
        files.put(file + u".FLL", "?");
    }
    void failLasting(FileCall call, FileError error) {
        faults.arm({.error = error, .kind = call, .lasting = true});
    }

    const CString project = path("a.kqp");
    const CString drawing = path("b.dwg");
    const CString last = path("c.dwg");
    const CStringList all = {project, drawing, last};
    PackageCheck check;
    FaultFiles faults{files};
    RyvPrmVirtualFileLocker bobs;
};

TEST_F(LockRefusal, eachKind_isToldWithItsFile_andNothingStaysLocked) {
    const struct Case {
        const char* name;
        std::function<void()> arrange;
        const char* refusal; ///< of locking; empty when nothing is in the way
        const char* listed;
        bool forbidsLooks = true;
    } cases[] = {
        {"held", [this] { lockAsBob(last); },
            "C:\\P\\c.dwg is being worked on by bob(DESK). Nothing was changed; try again later.",
            "C:\\P\\c.dwg: bob(DESK) is working on it"},
        {"held project", [this] { lockAsBob(project); },
            "C:\\P\\a.kqp is being worked on by bob(DESK). Nothing was changed; try again later.",
            "C:\\P\\a.kqp: bob(DESK) is working on it"},
        {"lock file says nothing", [this] { lockWithoutRecord(last); },
            "C:\\P\\c.dwg is locked, and its lock file does not say by whom. Nothing was changed; try again "
            "later.",
            "C:\\P\\c.dwg: it is locked, and its lock file does not say by whom"},
        {"protected", [this] { files.protect(last); },
            "C:\\P\\c.dwg or its folder is read-only. Nothing was changed.",
            "C:\\P\\c.dwg: the file or its folder is read-only", false},
        {"protected project", [this] { files.protect(project); },
            "C:\\P\\a.kqp or its folder is read-only. Nothing was changed.",
            "C:\\P\\a.kqp: the file or its folder is read-only"},
        {"protected folder", [this] { failLasting(FileCall::checkFolderWritable, FileError::denied); },
            "C:\\P\\a.kqp or its folder is read-only. Nothing was changed.",
            "C:\\P\\a.kqp: the file or its folder is read-only"},
        {"missing project", [this] { files.erase(project); },
            "C:\\P\\a.kqp was not found. Nothing was changed.", "C:\\P\\a.kqp: not found"},
        {"missing drawing", [this] { files.erase(last); }, "", "", false},
        {"full disk", [this] { failLasting(FileCall::write, FileError::noSpace); },
            "C:\\P\\a.kqp could not be locked: no space left on the disk. Nothing was changed.",
            "C:\\P\\a.kqp: it could not be locked: no space left on the disk"},
        {"user without a name", [this] { surroundings.identity.user.clear(); },
            "The files of project A could not be locked. Nothing was changed.",
            "C:\\P\\a.kqp: it could not be locked"},
        {"no drawing open",
            [this] {
                surroundings.documents.open = false;
                lockAsBob(last);
            },
            "No drawing is open, and the command needs one. Open a drawing, and try again.",
            "No drawing is open, and the command needs one. Open a drawing, and try again."},
    };
    for (const Case& each : cases)
        for (const bool looks : {false, true}) {
            SCOPED_TRACE(std::string(each.name) + (looks ? ", looks" : ""));
            prepare();
            each.arrange();
            const CStringArray before = files.paths();
            const bool passes = *each.refusal == '\0' || (looks && !each.forbidsLooks);
            FileLocks locks(project);
            EXPECT_EQ(looks ? locks.check(all) : locks.lock(all), passes);
            if (!passes) {
                EXPECT_EQ(toUtf8(locks.refusal()), each.refusal);
                EXPECT_EQ(toUtf8(locks.listedRefusal()), each.listed);
                EXPECT_EQ(files.paths(), before) << "no lock file but those of others";
            }
            locks.unlock();
            EXPECT_EQ(files.paths(), before);
        }
}

TEST_F(LockRefusal, filesOfTheUsersOwn_areInNobodysWay_andStayLocked) {
    const CString foreign = path("d.dwg");
    files.put(foreign, "content");
    FileLocks first(project);
    ASSERT_TRUE(first.lock({project, drawing}));
    const CStringArray before = files.paths();
    {
        FileLocks second(project);
        EXPECT_TRUE(second.lock(all));
        lockAsBob(foreign);
        EXPECT_FALSE(second.lock({drawing, foreign})) << "what was locked before stays so";
        EXPECT_TRUE(manager->isProjectFileLocked(CStringView(last)));
        bobs.unlockAllFiles();
    }
    EXPECT_EQ(files.paths(), before);
}

TEST_F(LockRefusal, withoutAProject_namesTheFile) {
    surroundings.identity.user.clear();
    FileLocks locks;
    EXPECT_FALSE(locks.lock({last}));
    EXPECT_EQ(toUtf8(locks.refusal()), "C:\\P\\c.dwg could not be locked. Nothing was changed.");
    files.erase(project);
    EXPECT_FALSE(locks.lock({project}));
    EXPECT_EQ(toUtf8(locks.refusal()), "C:\\P\\a.kqp was not found. Nothing was changed.");
}

} // namespace
} // namespace ryv::test
