// A line that tells something, with what it offers and a way to be rid of it.
#pragma once

#include "base/event.h"
#include "embedded/qt/controls/control_view.h"
#include "toolkit/notice_line.h"

#include <QFrame>

class QLabel;
class QToolButton;

namespace drafta {

/// Hidden while there is nothing to tell; screen readers are told when there is.
class NoticeView final : public QFrame {
public:
    NoticeView(ryv::NoticeLine& notice, ViewContext& context, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void setUp();
    void follow();

    ryv::NoticeLine& notice_;
    ViewContext& context_;
    QLabel* text_;
    QToolButton* offer_;
    QToolButton* close_;
    ryv::Subscription changes_;
};

} // namespace drafta
