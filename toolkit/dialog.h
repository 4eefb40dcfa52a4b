// A dialog: panels of controls, buttons, and its course from begin to end. Who shows it (a window, a
// terminal, a script) hands on what the user does and draws what has changed.
#pragma once

#include "toolkit/button.h"
#include "toolkit/panel.h"

namespace ryv {

/// Main thread only. Looking up a control that is not there, or as one of another kind, is a fault of the
/// program and throws std::invalid_argument; so is a second control with the same ID.
///
/// A dialog lives until the calls into it have returned: nothing that it calls, its own functions as little
/// as handlers of events, destroys it, or a control of it. Ending it and beginning it again is always
/// allowed.
class Dialog {
public:
    /// Buttons and results that mean the same everywhere.
    static constexpr int idOk = 1;
    static constexpr int idCancel = 2;

    /// Makes the panels and buttons of the layout. The layout itself is not needed afterwards.
    explicit Dialog(const DialogLayout& layout, TextSource texts = nullptr);
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog();

    /// By which answer files address it.
    const CString& name() const noexcept { return name_; }
    const CString& title() const noexcept { return title_; }
    void setTitle(CString title);

    /// The page of the help that tells about it; empty for none.
    const CString& helpTopic() const noexcept { return helpTopic_; }
    void setHelpTopic(CStringView topic) { helpTopic_ = topic; }

    /// Adds a panel at the end; it is not owned and lives as long as the dialog runs.
    void addPanel(Panel& panel);
    const std::vector<Panel*>& panels() const noexcept { return panels_; }
    const std::vector<std::unique_ptr<Button>>& buttons() const noexcept { return buttons_; }

    /// Those of all panels in their order, buttons among them.
    const std::vector<Control*>& controls() const noexcept { return controls_; }

    /// Null when the dialog has no such control; buttons are controls.
    Control* find(int id) const noexcept;
    template <class C>
    C& control(int id) const {
        C* const found = dynamic_cast<C*>(find(id));
        if (!found)
            throw std::invalid_argument("no such control in the dialog");
        return *found;
    }

    /// The control that has the keyboard; 0 for none. Setting it shows where the control stands.
    int focus() const noexcept { return focus_; }
    void setFocus(int id);

    /// What Enter presses; 0 for nothing.
    int defaultButton() const noexcept { return defaultButton_; }
    void setDefaultButton(int id);

    /// Opens the dialog; nothing happens when it is open. It may be run again, and keeps its fields. Passes
    /// on what onInit() throws, closed with Cancel.
    void begin();
    bool isOpen() const noexcept { return open_; }

    /// The user has pressed a button of the dialog. False when the dialog is not open or the button cannot be
    /// used. An unknown ID is a fault. Enter and Escape are the two below; Escape always works.
    bool press(int id);
    bool pressDefault();
    void pressCancel();

    /// Closes the dialog; nothing happens when it is not open.
    void end(int result);
    /// What it ended with: the ID of a button as a rule.
    int result() const noexcept { return result_; }

    /// For who shows it: a control is different; title, focus, default button or page is; it has ended.
    Event<const Control&> changed;
    Event<> rearranged;
    Event<> ended;

protected:
    /// Once each time it opens. False closes it at once, with Cancel.
    virtual bool onInit() { return true; }
    /// The user has given a control another value.
    virtual void onChange(Control&) {}
    /// The user has pressed a button other than OK and Cancel.
    virtual void onPress(int) {}
    /// The user has confirmed. False: it stays open, with the focus where it was set.
    virtual bool onOk() { return true; }
    virtual void onCancel() {}
    /// The focus goes to a control: brings it to where it can be seen.
    virtual void reveal(const Control&) {}

    /// Takes the controls of a panel on without listing it among the dialog's own.
    void connect(Panel& panel);

private:
    void addButton(const ButtonLayout& layout, TextSource texts);
    void follow(Control& control);
    void edited(Panel& panel, Control& control);
    void pressed(Panel* panel, int id);
    void confirm();
    void endRun(unsigned run, int result);

    CString name_;
    CString title_;
    CString helpTopic_;
    std::vector<std::unique_ptr<Panel>> ownPanels_;
    std::vector<std::unique_ptr<Button>> buttons_;
    std::vector<Panel*> panels_;
    std::vector<Control*> controls_;
    std::vector<Subscription> subscriptions_;
    int focus_ = 0;
    int defaultButton_;
    int result_ = 0;
    unsigned run_ = 0; // how many times it has begun
    bool open_ = false;
};

} // namespace ryv
