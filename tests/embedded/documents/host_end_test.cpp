// How documents, commands and the host itself end.
#include "tests/embedded/documents/host_fixture.h"

#include "toolkit/dialog.h"

#include <thread>

namespace drafta {
namespace {

using ryv::CString;
using ryv::CStringView;
using ryv::DocumentId;

class HostEnd : public HostFixture {};

TEST_F(HostEnd, closingInsideTheNoticeOfAnEnd_isRefused) {
    class Closer final : public ryv::DocumentObserver {
    public:
        Documents* documents = nullptr;
        bool closed = true;
        void documentToBeDestroyed(DocumentId id) override { closed = documents->close(id); }
    } closer;
    closer.documents = &host.documents();
    host.documents().add(closer);
    EXPECT_TRUE(host.documents().close(DocumentId(1)));
    EXPECT_FALSE(closer.closed);
    host.documents().remove(closer);
}

TEST_F(HostEnd, nothingRunsBehindQuit) {
    folder.write("q.scr", "quit\n(setvar \"USERI1\" 5)\n");
    line("script " + folder.native("q.scr"));
    EXPECT_TRUE(host.hasQuit());
    ryv::SystemVariable value;
    host.platform().host.editor->systemVariable(u"USERI1", value);
    EXPECT_EQ(std::get<std::int32_t>(value), 0);
}

TEST_F(HostEnd, quitting_asksForChangesAndCanBeVetoed) {
    line("(setq h (dwg-current)) (dwg-insert h \"KQ_M\" (findfile \"KQ_M.dwg\") '(0 0 0) 1.0 0.0)");
    line("quit");
    EXPECT_FALSE(host.hasQuit()) << "nobody answered, so it was cancelled";
    Answers answers;
    CString problem;
    ASSERT_TRUE(Answers::parse(u"message 1: no", answers, problem));
    host.userInterface().setAnswers(answers);
    class Veto final : public ryv::EditorObserver {
        void beginQuit(bool& veto) override { veto = true; }
    } veto;
    host.platform().host.editor->add(veto);
    line("quit");
    EXPECT_FALSE(host.hasQuit());
    host.platform().host.editor->remove(veto);
    line("quit");
    EXPECT_TRUE(host.hasQuit());
}

TEST_F(HostEnd, quitting_isRefusedWhileADialogIsOpen) {
    class Quitting final : public ryv::Dialog {
    public:
        explicit Quitting(Host& host) : Dialog({u"Q", u"Question", {}, {}}), host_(host) {}

    private:
        bool onOk() override {
            host_.platform().host.commands->runCommand({u"_.QUIT"});
            return true;
        }
        Host& host_;
    } dialog(host);
    Answers answers;
    CString problem;
    ASSERT_TRUE(Answers::parse(u"dialog Q: ok", answers, problem));
    host.userInterface().setAnswers(answers);
    EXPECT_EQ(host.platform().ui->runModal(dialog), ryv::Dialog::idOk);
    EXPECT_FALSE(host.hasQuit());
    EXPECT_NE(printed.find("A question is open"), std::string::npos);
    line("quit");
    EXPECT_TRUE(host.hasQuit());
}

TEST_F(HostEnd, interrupt_endsTheLispOfAllDocumentsAtWork) {
    line("(defun forever () (while t))");
    line("new");
    std::thread breaker([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        host.interrupt();
    });
    EXPECT_NE(line("(while t (setq n 1)) (princ \"not reached\")").find("*Cancel*"), std::string::npos);
    breaker.join();
    EXPECT_EQ(printed.find("not reached"), std::string::npos);
    EXPECT_EQ(line("(+ 1 2)"), "3");
}

} // namespace
} // namespace drafta
