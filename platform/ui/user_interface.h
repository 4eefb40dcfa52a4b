// Questions to the user. Every request carries a number or a name, so that scripts and tests can answer it.
// Each operation blocks until it is answered; posted messages and timers go on meanwhile, so anything may
// have changed when it returns.
#pragma once

#include "base/strings.h"

#include <climits>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace ryv {

class Dialog; // a dialog model, see toolkit/
class Menu;   // a menu model, see toolkit/

enum class MessageIcon { none, information, question, warning, error };
enum class MessageButtons { ok, okCancel, yesNo, yesNoCancel, retryCancel };
enum class Answer { cancel, ok, yes, no, retry };

struct MessageBoxRequest {
    int message = 0; ///< number of the text in the catalogue; 0 when the text comes from elsewhere
    CString text;    ///< filled in and ready to be shown
    CString caption;
    MessageIcon icon = MessageIcon::information;
    MessageButtons buttons = MessageButtons::ok;
};

/// A button of a task dialog: the number that choosing it answers, and its text.
struct TaskDialogButton {
    int id = 0;
    CString text;
};

struct TaskDialogRequest {
    CString id; ///< "RyvPageMan.SubfolderNameExists"
    CString title;
    CString instruction; ///< the one sentence in large letters
    CString content;
    std::vector<TaskDialogButton> buttons;
    int defaultButton = 0;
    std::vector<std::pair<CString, CString>> variables; ///< as they were filled into the texts
};

struct FileRequest {
    int title = 0; ///< number of the title in the catalogue
    CString text;  ///< the title itself
    CString folder;
    CString name;      ///< proposed
    CString extension; ///< ".kqp"; others are not shown
    bool save = false; ///< a new name may be given; otherwise the file must exist
    bool many = false; ///< several files may be chosen
    bool choosesFolder =
        false; ///< a folder is chosen, which exists; extension and kinds of files do not count
    bool confirmsReplacing = true; ///< with `save`: the user is asked before a file that is there is taken
};

/// One line of a form.
struct FormField {
    enum class Kind {
        text,   ///< free text
        choice, ///< one of `choices`
        list,   ///< any of `choices`
        check   ///< "1" or "0"
    };
    Kind kind = Kind::text;
    CString name;  ///< by which scripts answer it
    CString label; ///< what the user sees
    CStringArray choices;
    /// Proposed, then answered: of a list the chosen ones in the order of choosing, of the other kinds one.
    CStringArray values;
};

/// A small dialog that package LISP puts together.
struct FormRequest {
    CString name; ///< by which scripts answer it
    CString title;
    std::vector<FormField> fields;
    CString confirm; ///< what the two buttons say; empty: the usual texts
    CString cancel;
};

/// A progress display, on screen until it is let go.
class Progress {
public:
    virtual ~Progress() = default;

    /// `done` of the announced steps are done, and `item` is what is at work now. False: the user has
    /// cancelled.
    virtual bool step(std::size_t done, CStringView item) = 0;
};

/// A place on the screen, in pixels.
struct ScreenPoint {
    int x = 0;
    int y = 0;
    bool operator==(const ScreenPoint&) const = default;

    /// Below the control that the user has used last, or at the pointer.
    static constexpr ScreenPoint atControl() noexcept { return {INT_MIN, INT_MIN}; }
};

class UserInterface {
public:
    /// Results of dialogs and task dialogs that were confirmed or closed.
    static constexpr int idOk = 1;
    static constexpr int idCancel = 2;

    virtual ~UserInterface() = default;

    /// `ok` for a box that has no other button, `cancel` when it is closed and has a Cancel, else `no`.
    virtual Answer messageBox(const MessageBoxRequest& request) = 0;

    /// The number of the button that was chosen; idCancel when the dialog is closed.
    virtual int taskDialog(const TaskDialogRequest& request) = 0;

    /// Module paths; empty when the user cancels.
    virtual std::vector<CString> chooseFiles(const FileRequest& request) = 0;

    /// Lets the user fill in a form; its fields hold the answers afterwards. False, with the fields as they
    /// were, when the user cancels.
    virtual bool fillForm(FormRequest& request) = 0;

    /// Runs a dialog until it ends; its result. Nests.
    virtual int runModal(Dialog& dialog) = 0;

    /// The number of the chosen command; 0 when none was.
    virtual int popupMenu(const Menu& menu, ScreenPoint place) = 0;

    /// `title` is the number of the text, `count` the number of steps. Never null.
    virtual std::unique_ptr<Progress> beginProgress(int title, std::size_t count) = 0;
};

/// Cancels every question.
class NullUserInterface : public UserInterface {
public:
    Answer messageBox(const MessageBoxRequest& request) override;
    int taskDialog(const TaskDialogRequest&) override { return idCancel; }
    std::vector<CString> chooseFiles(const FileRequest&) override { return {}; }
    bool fillForm(FormRequest&) override { return false; }
    int runModal(Dialog&) override { return idCancel; }
    int popupMenu(const Menu&, ScreenPoint) override { return 0; }
    std::unique_ptr<Progress> beginProgress(int, std::size_t) override;
};

} // namespace ryv
