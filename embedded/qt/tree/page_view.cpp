// A page of a palette: buttons, content, notice.
#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_views.h"
#include "toolkit/control_page.h"

#include <QHBoxLayout>
#include <QStyleOptionToolButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace drafta {

namespace {

constexpr int buttonSize = 24;

/// A button of the row, with an arrow when it opens a menu.
class ToolButton final : public QToolButton {
public:
    ToolButton(ryv::Button& button, ViewContext& context, QWidget* parent)
        : QToolButton(parent), button_(button) {
        setAutoRaise(true);
        setFocusPolicy(Qt::TabFocus);
        setIconSize(QSize(metrics::icon, metrics::icon));
        auto* const link = new ControlLink(*this, button, [this] { follow(); });
        connect(this, &QToolButton::clicked, link,
            [this, link, &context] { link->forward(context, [&button = button_] { button.press(); }); });
    }

    /// The arrow stands beside the icon, not over it.
    QSize sizeHint() const override {
        if (toolButtonStyle() == Qt::ToolButtonTextOnly)
            return QToolButton::sizeHint();
        return {button_.isDropDown() ? buttonSize + metrics::gap : buttonSize, buttonSize};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override {
        QToolButton::initStyleOption(option);
        if (button_.isDropDown())
            option->features |= QStyleOptionToolButton::HasMenu;
    }

private:
    void follow() {
        const QIcon icon = themeIcon(toQt(button_.name()).toLower().toLatin1().constData());
        setIcon(icon);
        setText(spokenLabel(button_));
        setToolButtonStyle(icon.isNull() ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly);
        if (button_.tooltip().empty())
            setToolTip(asTooltip(fromQt(spokenLabel(button_))));
        updateGeometry();
        update();
    }

    ryv::Button& button_;
};

QHBoxLayout* makeButtonRow(const ryv::ControlPage& page, ViewContext& context, QWidget* parent) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    for (ryv::Button* const button : page.buttons())
        if (button)
            row->addWidget(new ToolButton(*button, context, parent));
        else
            row->addSpacing(metrics::gap);
    row->addStretch(1);
    return row;
}

} // namespace

QWidget* makePageView(ryv::ControlPage& page, ViewContext& context, QWidget* parent) {
    auto* const view = new QWidget(parent);
    new ControlLink(*view, page, [] {});
    auto* const layout = new QVBoxLayout(view);
    layout->setContentsMargins(metrics::gap / 2, metrics::gap / 2, metrics::gap / 2, metrics::gap / 2);
    layout->setSpacing(metrics::gap / 2);
    if (!page.buttons().empty())
        layout->addLayout(makeButtonRow(page, context, view));
    if (page.content()) {
        layout->addWidget(makeControlView(*page.content(), context, view), 1);
    }
    if (page.notice())
        layout->addWidget(makeNoticeView(*page.notice(), context, view));
    return view;
}

} // namespace drafta
