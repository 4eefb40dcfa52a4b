// A line that tells something and may offer to do something about it: "12 drawings were moved. Undo".
#pragma once

#include "toolkit/control.h"

#include <functional>

namespace ryv {

/// Shown while its text is not empty.
class NoticeLine : public Control {
public:
    explicit NoticeLine(int id) noexcept : Control(ControlKind::notice, id) {}

    const CString& text() const noexcept { return text_; }

    /// What the offer is called: "Undo"; empty when nothing is offered.
    const CString& offer() const noexcept { return offer_; }

    /// Tells something in place of what was told before.
    void tell(CString text) { show(std::move(text), {}, nullptr); }

    /// The same with an offer. `accept` runs at most once, after the line has become empty.
    void tell(CString text, CString offer, std::function<void()> accept) {
        show(std::move(text), std::move(offer), std::move(accept));
    }

    /// The user has read it, or it is no longer true.
    void clear() { show({}, {}, nullptr); }

    /// The user goes on to something else: what was told is over, an offer stays.
    void clearUnlessOffering() {
        if (!accept_ && !text_.empty())
            clear();
    }

    /// The user takes the offer up. False when there is none.
    bool accept() {
        if (!isUsable() || !accept_)
            return false;
        const std::function<void()> work = std::exchange(accept_, nullptr);
        clear();
        work();
        return true;
    }

private:
    void show(CString text, CString offer, std::function<void()> accept) {
        text_ = std::move(text);
        offer_ = std::move(offer);
        accept_ = std::move(accept);
        notify();
    }

    CString text_;
    CString offer_;
    std::function<void()> accept_;
};

} // namespace ryv
