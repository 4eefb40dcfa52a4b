// An open project whose file others replace by something that is no project, and bring back.
#include "tests/support/random.h"
#include "tests/system/real_manager.h"

#include <sys/stat.h>
#include <unistd.h>

namespace ryv::test {
namespace {

namespace fs = std::filesystem;

/// A user who is not the superuser, for as long as the object lives.
class AsNobody {
public:
    AsNobody(const std::string& parent, const std::string& folder) {
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0)
            changed_ = ::chmod(parent.c_str(), 0711) == 0 && ::chown(folder.c_str(), nobody, nobody) == 0 &&
                       ::seteuid(nobody) == 0;
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody() {
        if (changed_) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }

private:
    bool changed_ = false;
};

class ManagerNeighbourReliability : public RealManager {
protected:
    ManagerNeighbourReliability() {
        fs::create_directory(native("p"));
        id = folder.module(u"p\\a.kqp");
        folder.write("p/a.kqp", "first.dwg\n");
        manager->openProject(id, true);
        recorder->story();
    }
    std::string native(const std::string& name) const { return folder.native(name); }
    std::string kqp() const { return native("p/a.kqp"); }
    bool has(const char* name) {
        return manager->isFileInProject(folder.module(u"p\\" + decodeUtf8(name)), id);
    }
    bool add(const char* name) {
        return manager->addFileToProject(drawing(folder.module(u"p\\" + decodeUtf8(name))), id);
    }

    /// Spoils the file in some way, then undoes that and writes another project.
    struct Neighbour {
        const char* what;
        std::function<void()> spoil;
        std::function<void()> undo;
        bool isTaken =
            false; ///< what stands there is read as a project, however poor; otherwise memory stays
    };
    void meet(const Neighbour& neighbour);
    std::vector<Neighbour> neighbours();
    unsigned met = 0;
};

std::vector<ManagerNeighbourReliability::Neighbour> ManagerNeighbourReliability::neighbours() {
    const auto removeIt = [this] { fs::remove(kqp()); };
    const auto replaceBy = [this](auto make) {
        return [this, make] {
            fs::remove(kqp());
            make();
        };
    };
    const auto write = [this](const std::string& text) { folder.write("p/a.kqp", text); };
    std::string garbage;
    for (Random random(7); garbage.size() < 20'000;)
        garbage += static_cast<char>(random.below(256));
    return {
        {"a folder", replaceBy([this] { fs::create_directory(kqp()); }), removeIt},
        {"a pipe", replaceBy([this] { EXPECT_EQ(::mkfifo(kqp().c_str(), 0600), 0); }), removeIt},
        {"a link to nothing", replaceBy([this] { fs::create_symlink("nowhere", kqp()); }), removeIt},
        {"a link to itself", replaceBy([this] { fs::create_symlink("a.kqp", kqp()); }), removeIt},
        {"a device without end", replaceBy([this] { fs::create_symlink("/dev/zero", kqp()); }), removeIt},
        {"0 bytes in place", [=] { write(""); }, [] {}},
        {"another file of 0 bytes", replaceBy([=] { write(""); }), [] {}},
        {"garbage", [=] { write(garbage); }, [] {}, true},
        {"nothing", removeIt, [] {}},
        {"nothing, with its folder", [this] { fs::rename(native("p"), native("q")); },
            [this] { fs::rename(native("q"), native("p")); }},
        {"a folder removed with all in it", [this] { fs::remove_all(native("p")); },
            [this] { fs::create_directory(native("p")); }},
    };
}

void ManagerNeighbourReliability::meet(const Neighbour& neighbour) {
    SCOPED_TRACE(neighbour.what);
    const std::string before = std::to_string(met) + ".dwg";
    const std::string after = std::to_string(++met) + ".dwg";
    folder.write("p/a.kqp", before + "\n");
    ASSERT_TRUE(waitFor([&] { return has(before.c_str()); }));
    neighbour.spoil();
    if (neighbour.isTaken) {
        EXPECT_TRUE(waitFor([&] { return !has(before.c_str()); }));
    } else {
        runFor(std::chrono::milliseconds(250)); // the quiet period, and a re-read that comes to nothing
        EXPECT_TRUE(has(before.c_str()));
        EXPECT_FALSE(add("unwritten.dwg"));
    }
    ASSERT_EQ(manager->getProjectCount(), 1);
    neighbour.undo();
    folder.write("p/a.kqp", after + "\n");
    EXPECT_TRUE(waitFor([&] { return has(after.c_str()); }));
    EXPECT_FALSE(has("unwritten.dwg"));
    EXPECT_TRUE(add("last.dwg"));
    EXPECT_TRUE(manager->reReadProject(id) && has(after.c_str()) && has("last.dwg"));
}

TEST_F(ManagerNeighbourReliability, fileReplacedBySomethingElse_keepsTheContent_andFollowsAgain) {
    for (int round = wantsFullReliability() ? 20 : 1; round > 0 && !HasFailure(); --round)
        for (const Neighbour& neighbour : neighbours())
            meet(neighbour);
    RecordProperty("neighbours", static_cast<int>(met));
}

TEST_F(ManagerNeighbourReliability, fileThatMayNotBeRead_keepsTheContent_andFollowsAgain) {
    const AsNobody nobody(native(""), native("p"));
    fs::remove(kqp());
    meet({"no permission", [this] { ::chmod(kqp().c_str(), 0); }, [this] { ::chmod(kqp().c_str(), 0644); }});
}

} // namespace
} // namespace ryv::test
