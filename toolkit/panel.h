// A few controls under one title, which edit one matter. Dialogs and pages of property sheets are made of
// panels.
#pragma once

#include "toolkit/layout.h"

#include <memory>
#include <optional>
#include <vector>

namespace ryv {

/// A record as a panel sees it: a text for each control that stands for something in it.
class Binding {
public:
    virtual ~Binding() = default;
    /// Nothing when the control stands for nothing in the record.
    virtual std::optional<CString> value(const Control& control) const = 0;
    virtual void setValue(const Control& control, CStringView value) = 0;
};

/// Looking up a control that is not there, or as one of another kind, is a fault of the program and throws
/// std::invalid_argument; so is a second control with the same ID.
class Panel {
public:
    /// A control, and whether it stands beside the one before it.
    struct Place {
        Control* control = nullptr;
        bool sameRow = false;
    };

    explicit Panel(const PanelLayout& layout, TextSource texts = nullptr);
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;
    virtual ~Panel();

    const CString& title() const noexcept { return title_; }
    bool isOnSameRow() const noexcept { return sameRow_; }
    const std::vector<Place>& places() const noexcept { return places_; }

    /// Adds a control of the caller's own class at the end, in a row of its own unless told otherwise. Only
    /// before the panel is put into a dialog.
    template <class C>
    C& add(std::unique_ptr<C> control, bool sameRow = false) {
        C& added = *control;
        adopt(std::move(control), sameRow);
        return added;
    }

    /// Null when the panel has no such control.
    Control* find(int id) const noexcept;

    template <class C>
    C& control(int id) const {
        C* const found = dynamic_cast<C*>(find(id));
        if (!found)
            throw std::invalid_argument("no such control in the panel");
        return *found;
    }

    /// Puts a record's values into the controls. What a control cannot show it leaves unchosen.
    void load(const Binding& record);

    /// Puts the controls' values into the record. A value that the control shows already keeps its spelling,
    /// and one that it could not show stays unless the user has chosen another.
    void store(Binding& record) const;

protected:
    friend class Dialog;

    /// The user has given one of the panel's controls another value, or pressed one of its buttons. Told
    /// before the dialog is.
    virtual void onChange(Control&) {}
    virtual void onPress(int) {}

private:
    void adopt(std::unique_ptr<Control> control, bool sameRow);

    CString title_;
    bool sameRow_;
    std::vector<std::unique_ptr<Control>> controls_;
    std::vector<Place> places_;
};

} // namespace ryv
