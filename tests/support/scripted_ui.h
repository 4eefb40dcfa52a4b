// A user who answers what a test has put down beforehand, question by question.
#pragma once

#include "base/text.h"
#include "platform/ui/user_interface.h"
#include "toolkit/menu.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>

namespace ryv::test {

/// Answers wait in a queue for each question: message boxes by message number, task dialogs by ID, files by
/// the number of the title, forms by name. A question without an answer is cancelled. All questions are kept.
class ScriptedUserInterface final : public NullUserInterface {
public:
    void answerMessage(int message, Answer answer) { put(u"message " + toText(message), int(answer)); }
    void answerTask(CStringView id, int button) { put(u"task " + CString(id), button); }
    void answerFiles(int title, std::vector<CString> paths) {
        put(u"file " + toText(title), 0, {std::move(paths)});
    }
    /// Values by the names of the fields; the others keep what was proposed.
    void answerForm(CStringView name, std::map<CString, CStringArray> values) {
        put(u"form " + CString(name), 0, {}, std::move(values));
    }
    /// Dialogs are met in the order in which they are run, each by one of these; its result is the dialog's.
    void answerDialog(std::function<int(Dialog&)> user) { dialogs_.push_back(std::move(user)); }
    void answerMenu(int command) { menus_.push_back(command); }

    /// Runs while each question is open, before it is answered: what may happen meanwhile.
    std::function<void()> meanwhile = [] {};
    /// The progress display is cancelled at this step, from 1.
    std::optional<std::size_t> cancelAtStep;

    /// The questions in their order: "message 268", "task ID", "file 140", "form NAME", "dialog", "menu",
    /// "progress 12".
    CStringArray asked;
    std::vector<MessageBoxRequest> messages;
    std::vector<TaskDialogRequest> tasks;
    std::vector<FileRequest> fileRequests;
    std::vector<FormRequest> forms; ///< as they were asked
    CStringArray progressItems;
    std::vector<int> menuItems; ///< the commands of the menu that was shown last
    void forgetAnswers() {
        answers_.clear();
        dialogs_.clear();
        menus_.clear();
    }
    /// How many answers nobody has asked for yet.
    std::size_t unusedAnswers() const {
        std::size_t count = dialogs_.size() + menus_.size();
        for (const auto& [question, answers] : answers_)
            count += answers.size();
        return count;
    }

    Answer messageBox(const MessageBoxRequest& request) override {
        messages.push_back(request);
        const auto answer = take(u"message " + toText(request.message));
        return answer ? static_cast<Answer>(answer->number) : NullUserInterface::messageBox(request);
    }
    int taskDialog(const TaskDialogRequest& request) override {
        tasks.push_back(request);
        const auto answer = take(u"task " + request.id);
        return answer ? answer->number : idCancel;
    }
    std::vector<CString> chooseFiles(const FileRequest& request) override {
        fileRequests.push_back(request);
        const auto answer = take(u"file " + toText(request.title));
        return answer ? answer->paths : std::vector<CString>();
    }
    bool fillForm(FormRequest& request) override {
        forms.push_back(request);
        const auto answer = take(u"form " + request.name);
        if (!answer)
            return false;
        for (FormField& field : request.fields)
            if (const auto hit = answer->values.find(field.name); hit != answer->values.end())
                field.values = hit->second;
        return true;
    }
    int runModal(Dialog& dialog) override {
        ask(u"dialog");
        if (dialogs_.empty())
            return idCancel;
        const auto user = std::move(dialogs_.front());
        dialogs_.pop_front();
        return user(dialog);
    }
    int popupMenu(const Menu& menu, ScreenPoint) override {
        menuItems.clear();
        for (const MenuItem& each : menu.items())
            menuItems.push_back(each.id);
        ask(u"menu");
        if (menus_.empty())
            return 0;
        const int command = menus_.front();
        menus_.pop_front();
        return command;
    }
    std::unique_ptr<Progress> beginProgress(int title, std::size_t) override {
        ask(u"progress " + toText(title));
        return std::make_unique<Steps>(*this);
    }

private:
    struct Prepared {
        int number = 0;
        std::vector<CString> paths;
        std::map<CString, CStringArray> values;
    };
    class Steps final : public Progress {
    public:
        explicit Steps(ScriptedUserInterface& ui) : ui_(ui) {}
        bool step(std::size_t, CStringView item) override {
            ui_.progressItems.emplace_back(item);
            ui_.meanwhile();
            return ++count_ != ui_.cancelAtStep;
        }

    private:
        ScriptedUserInterface& ui_;
        std::size_t count_ = 0;
    };

    void put(CString question, int number, std::vector<CString> paths = {},
        std::map<CString, CStringArray> values = {}) {
        answers_[std::move(question)].push_back({number, std::move(paths), std::move(values)});
    }
    void ask(CString question) {
        asked.push_back(std::move(question));
        meanwhile();
    }
    std::optional<Prepared> take(const CString& question) {
        ask(question);
        std::deque<Prepared>& waiting = answers_[question];
        if (waiting.empty())
            return std::nullopt;
        const Prepared answer = std::move(waiting.front());
        waiting.pop_front();
        return answer;
    }

    std::map<CString, std::deque<Prepared>> answers_;
    std::deque<std::function<int(Dialog&)>> dialogs_;
    std::deque<int> menus_;
};

} // namespace ryv::test
