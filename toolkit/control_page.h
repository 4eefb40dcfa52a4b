// A page of a palette: a row of buttons, below it a control that takes all the room, and a line of notices.
#pragma once

#include "toolkit/button.h"
#include "toolkit/notice_line.h"

#include <vector>

namespace ryv {

/// Owns none of its parts, which outlive it. What is put into it later is shown when views attach.
class ControlPage : public Control {
public:
    explicit ControlPage(int id) noexcept : Control(ControlKind::page, id) {}

    /// From left to right; a null pointer stands for a gap.
    const std::vector<Button*>& buttons() const noexcept { return buttons_; }
    void addButton(Button& button) { buttons_.push_back(&button); }
    void addGap() { buttons_.push_back(nullptr); }

    /// Null when there is none.
    Control* content() const noexcept { return content_; }
    void setContent(Control& content) noexcept { content_ = &content; }
    NoticeLine* notice() const noexcept { return notice_; }
    void setNotice(NoticeLine& notice) noexcept { notice_ = &notice; }

private:
    std::vector<Button*> buttons_;
    Control* content_ = nullptr;
    NoticeLine* notice_ = nullptr;
};

} // namespace ryv
