#include "ui/tree/combo_box.h"

#include "manager/last_project_list.h"
#include "manager/pinned_projects.h"
#include "resources/message_numbers.h"
#include "resources/project_list_message_numbers.h"
#include "tests/ui/tree/tree_fixture.h"
#include "toolkit/images.h"
#include "ui/tree/control_factory.h"

namespace ryv::test {
namespace {

constexpr int firstPin = 1001;
constexpr int removeMissing = 2001;
constexpr int morePackage = 2002;

class ProjectList : public TreeFixture {
protected:
    ProjectList() {
        surroundings.profile.key = u"Profile";
        make();
    }
    ~ProjectList() override { box.reset(); }

    void make() {
        box = RyvPrmControlFactory::Instance().NewProjectComboBox();
        box->Create();
    }
    /// "*A B - recent - new open": the active one is marked, what the box shows stands in front.
    std::string shown() const {
        std::string text = toUtf8(box->text()) + ":";
        for (std::size_t i = 0; i < box->rows().size(); ++i) {
            const ryvprmComboDataTag& entry = box->entries()[i];
            EXPECT_EQ(box->rows()[i].separator, entry.kind == combo_entry::separator);
            EXPECT_EQ(entry.isCommand, entry.kind > 1 && entry.kind < 9);
            text += entry.kind == combo_entry::project
                        ? std::string(box->rows()[i].marked ? " *" : " ") + toUtf8(entry.text)
                        : " " + std::to_string(entry.kind);
        }
        return text;
    }
    bool choose(std::int32_t kind) {
        for (std::size_t i = 0; i < box->entries().size(); ++i)
            if (box->entries()[i].kind == kind)
                return box->choose(i);
        return false;
    }
    int image(std::string_view project) const {
        for (std::size_t i = 0; i < box->entries().size(); ++i)
            if (box->entries()[i].project == path(project))
                return box->rows()[i].image;
        return -1;
    }
    CString active() const {
        CString id;
        manager->getActiveProjectID(id);
        return id;
    }
    void openDocument() { surroundings.documents.openDocument(u"C:\\P\\a.dwg"); }

    std::unique_ptr<RyvPrmComboBox> box;
};

TEST_F(ProjectList, entries_followTheOpenProjects) {
    EXPECT_EQ(shown(), ": 2 9 4 3");
    const CString b = open("B", "", true);
    EXPECT_EQ(shown(), "B: *B 9 2 9 4 3");
    const CString a = open("a", "");
    EXPECT_EQ(shown(), "B: A *B 9 2 9 4 3");
    manager->setActiveProject(CStringView(a));
    EXPECT_EQ(shown(), "A: *A B 9 2 9 4 3");
    manager->closeProject(b, false);
    EXPECT_EQ(shown(), "A: *A 9 2 9 4 3");
    manager->closeProject(a, true); // stays the active one by name
    EXPECT_EQ(shown(), ": 2 9 4 3");
    for (int i = 0; i < 30; ++i)
        open("P" + std::to_string(100 + i), "");
    EXPECT_EQ(box->rows().size(), 35u);
    make(); // one that comes later shows the same
    EXPECT_EQ(box->rows().size(), 35u);
    std::size_t notices = 0;
    const Subscription views = box->changed.subscribe([&](const Control&) { ++notices; });
    box->onListNeedsUpdate();
    EXPECT_EQ(notices, 0u); // nothing is different
}

TEST_F(ProjectList, choosing_doesWhatTheKindSays) {
    const CString a = open("A", "", true);
    const CString b = open("B", "");
    EXPECT_TRUE(box->choose(1));
    EXPECT_EQ(active(), b);
    EXPECT_EQ(shown(), "B: A *B 9 2 9 4 3");
    EXPECT_FALSE(box->choose(2)); // a line
    openDocument();
    EXPECT_TRUE(choose(combo_entry::newProject));
    surroundings.documents.runApplicationContext();
    EXPECT_EQ(surroundings.documents.sentTexts(), (CStringArray{u"_.ryvnewproject\r"}));
    EXPECT_EQ(box->text(), u"B"); // a command is no choice
    project("C", "");
    surroundings.lisp.answer(u"c:kq_getenv", {});
    surroundings.ui.answerFiles(message::openProjectTitle, {path("C.kqp")});
    EXPECT_TRUE(choose(combo_entry::openProject));
    EXPECT_EQ(active(), path("C.kqp"));
    box->InsertItem(0, {combo_entry::projectFile, a, u"Again", true});
    EXPECT_TRUE(box->choose(0));
    EXPECT_EQ(active(), a);
}

TEST_F(ProjectList, veto_endsTheSelectionOfAllButLines) {
    struct Objector {
        int asked = 0;
        void check(bool& veto) {
            ++asked;
            veto = true;
        }
    } objector;
    open("A", "", true);
    open("B", "");
    openDocument();
    manager->OnProjectEventVetoCheck.subscribe(objector, &Objector::check);
    for (const std::int32_t kind : {1, 2, 3, 4})
        EXPECT_TRUE(choose(kind));
    box->OnItemSelection({});
    EXPECT_EQ(objector.asked, 4);
    manager->__RemoveAllEventHandlers(&objector);
    EXPECT_EQ(active(), path("A.kqp"));
    EXPECT_TRUE(surroundings.ui.asked.empty());
}

TEST_F(ProjectList, sameName_replacesTheOpenProjectAfterTheUserAgrees) {
    open("A", "", true);
    open("B", "");
    const CString other = u"D:\\Q\\B.kqp";
    files.put(other, "");
    for (const Answer answer : {Answer::no, Answer::yes}) {
        surroundings.ui.answerFiles(message::openProjectTitle, {other});
        surroundings.ui.answerMessage(message::replaceOpenProject, answer);
        EXPECT_TRUE(choose(combo_entry::openProject));
        EXPECT_EQ(active(), answer == Answer::yes ? other : path("A.kqp"));
    }
    EXPECT_EQ(manager->getProjectCount(), 2);
}

TEST_F(ProjectList, lockImage_followsTheLock) {
    const CString a = open("A", "", true);
    EXPECT_EQ(image("A.kqp"), images::project);
    ASSERT_TRUE(manager->lockProjectFile(CStringView(a)));
    manager->onProjectLocked(a);
    EXPECT_EQ(image("A.kqp"), images::ownLock);
    EXPECT_EQ(box->text(), u"A");
    manager->unlockProjectFile(CStringView(a));
    EXPECT_EQ(image("A.kqp"), images::ownLock); // nobody has told yet
    manager->onProjectUnlocked(a);
    EXPECT_EQ(image("A.kqp"), images::project);
    files.protect(a);
    manager->onProjectReadOnlyChanged(a, true);
    EXPECT_EQ(image("A.kqp"), images::readOnly);
    files.erase(a);
    box->ReloadLockerImage();
    EXPECT_EQ(image("A.kqp"), images::missing);
}

TEST_F(ProjectList, recentProjects_standBehindThePinnedOnes) {
    const CString a = open("A", "", true);
    const CString b = project("B", "");
    const CString gone = path("Gone.kqp");
    recordProject(b, last_project::closed);
    recordProject(gone, last_project::closed);
    const auto menu = [&](std::initializer_list<int> answers) {
        for (const int each : answers)
            surroundings.ui.answerMenu(each);
        return choose(combo_entry::projectFile);
    };
    EXPECT_TRUE(menu({})); // no drawing is open
    EXPECT_EQ(surroundings.ui.messages.back().message, message::workNeedsDrawing);
    openDocument();
    // Gone, B, A: the newest first. A pin leads back to the menu.
    menu({firstPin + 1, 0});
    EXPECT_EQ(readPinnedProjects(), (CStringArray{b}));
    EXPECT_EQ(surroundings.ui.menuItems, (std::vector<int>{1, 0, 2, 3, 0, 0, removeMissing, morePackage}));
    menu({removeMissing, 0}); // not what is pinned
    EXPECT_EQ(surroundings.ui.menuItems, (std::vector<int>{1, 0, 2, 0, 0, removeMissing, morePackage}));
    menu({1});
    EXPECT_EQ(active(), b);
    files.erase(b);
    menu({removeMissing, firstPin, 0});
    EXPECT_TRUE(readPinnedProjects().empty());
    // Behind 30 others a pinned one is still there.
    EXPECT_TRUE(pinProject(u"c:/p/a.KQP", true));
    EXPECT_TRUE(pinProject(a, true));
    for (int i = 0; i < 40; ++i)
        recordProject(path("N" + std::to_string(i)), last_project::closed);
    menu({1});
    EXPECT_EQ(toUpper(active()), toUpper(a));
    surroundings.lisp.answer(u"c:ryv_proj_recent", {});
    menu({morePackage});
    EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
}

TEST_F(ProjectList, pins_areLimitedAndSurviveDamage) {
    for (std::size_t i = 0; i < mostPinnedProjects; ++i)
        EXPECT_TRUE(pinProject(path(std::to_string(i)), true));
    EXPECT_FALSE(pinProject(path("one more"), true));
    EXPECT_TRUE(pinProject(path("0"), false));
    EXPECT_EQ(readPinnedProjects().front(), path("1"));
    EXPECT_FALSE(pinProject(u"", true));
    const CString key = u"Profile\\Settings\\PinnedProjects";
    surroundings.registry.put(key, u"NR_ENTRIES", CString(u"2000000000"));
    surroundings.registry.put(key, u"2", CString(u"C:\\P\\1"));
    EXPECT_EQ(readPinnedProjects().size(), mostPinnedProjects - 2); // one is gone, one stands there twice
    surroundings.registry.put(key, u"NR_ENTRIES", 3u);
    EXPECT_TRUE(readPinnedProjects().empty());
    surroundings.profile.key.clear();
    EXPECT_FALSE(pinProject(path("a"), true));
}

TEST_F(ProjectList, box_mayGoWhileTheUserIsAsked) {
    open("A", "", true);
    openDocument();
    surroundings.ui.meanwhile = [this] { box.reset(); };
    surroundings.ui.answerMenu(removeMissing);
    choose(combo_entry::projectFile);
    EXPECT_EQ(box, nullptr);
    surroundings.ui.meanwhile = [] {};
    make();
    state.destroyProjectManager(); // before the box
    EXPECT_TRUE(choose(combo_entry::openProject));
    box.reset();
}

/// Makes trees and boxes of its own, and notes its end.
class Richer final : public IRyvPrmControlFactoryImpl {
public:
    struct Tree : CProjectTree {};
    struct Box : RyvPrmComboBox {};
    explicit Richer(int& ended) : ended_(ended) {}
    virtual ~Richer() { ++ended_; }
    void Destroy() override { delete this; }
    CProjectTree* NewProjectTree() override { return makesTrees ? new Tree : nullptr; }
    RyvPrmComboBox* NewProjectComboBox() override { return new Box; }
    bool makesTrees = true;

private:
    int& ended_;
};

TEST_F(ProjectList, factory_usesWhatIsRegisteredLast) {
    RyvPrmControlFactory& factory = RyvPrmControlFactory::Instance();
    int ended = 0;
    auto* const first = new Richer(ended);
    factory.RegisterImplementation(first);
    factory.RegisterImplementation(first);
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(dynamic_cast<Richer::Tree*>(factory.NewProjectTree().get()));
    EXPECT_TRUE(dynamic_cast<Richer::Box*>(factory.NewProjectComboBox().get()));
    first->makesTrees = false;
    EXPECT_FALSE(dynamic_cast<Richer::Tree*>(factory.NewProjectTree().get()));
    factory.RegisterImplementation(new Richer(ended));
    EXPECT_EQ(ended, 1);
    factory.RegisterImplementation(nullptr);
    EXPECT_EQ(ended, 2);
    EXPECT_FALSE(dynamic_cast<Richer::Box*>(factory.NewProjectComboBox().get()));
    EXPECT_TRUE(factory.NewProjectTree());
}

} // namespace
} // namespace ryv::test
