#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "toolkit/plain_text.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QVBoxLayout>

namespace drafta {

namespace {

/// A push button that can tell of a menu.
class PushButton final : public QPushButton {
public:
    PushButton(const ryv::Button& button, QWidget* parent) : QPushButton(parent), button_(button) {
        setAutoDefault(false); // Enter is the dialog's business
    }

    void takeLabel() {
        setText(toQt(button_.label()));
        if (!button_.label().empty())
            return;
        setIcon(themeIcon(toQt(button_.name()).toLower().toLatin1().constData()));
        if (icon().isNull()) // better a name than nothing at all
            setText(asWidgetLabel(button_.tooltip().empty() ? button_.name() : button_.tooltip()));
    }

protected:
    void changeEvent(QEvent* event) override {
        QPushButton::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) // icons are of the theme's colour
            takeLabel();
    }
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        if (button_.isDropDown())
            option->features |= QStyleOptionButton::HasMenu;
    }

private:
    const ryv::Button& button_;
};

/// One radio button for each choice.
class RadioView final : public QWidget {
public:
    RadioView(ryv::RadioGroup& group, ViewContext& context, QWidget* parent)
        : QWidget(parent), group_(group), context_(context) {
        auto* const rows = new QVBoxLayout(this);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(metrics::gap / 2);
        link_ = new ControlLink(*this, group, [this] { take(); });
        connect(&buttons_, &QButtonGroup::idToggled, this, [this](int, bool on) {
            if (on && !link_->isTaking())
                link_->forward(context_, [this] { chooseChecked(); });
        });
    }

private:
    void take() {
        const bool hasKeyboard = focusWidget() && focusWidget()->hasFocus() && isAncestorOf(focusWidget());
        if (shown_ != group_.choices())
            rebuild();
        const std::optional<std::size_t> chosen = group_.chosen();
        buttons_.setExclusive(false); // else the last one that is checked could not be cleared
        for (QAbstractButton* const button : buttons_.buttons())
            button->setChecked(chosen && buttons_.id(button) == static_cast<int>(*chosen));
        buttons_.setExclusive(true);
        QAbstractButton* const front = buttons_.button(chosen ? static_cast<int>(*chosen) : 0);
        setFocusProxy(front);
        if (hasKeyboard && front) // arrow keys go on from there
            front->setFocus();
    }

    void rebuild() {
        shown_ = group_.choices();
        for (QAbstractButton* const button : buttons_.buttons()) {
            buttons_.removeButton(button);
            button->hide();
            button->deleteLater(); // it may be the one whose gesture this is
        }
        int row = 0;
        for (const ryv::Choice& choice : shown_) {
            auto* const button = new QRadioButton(asWidgetLabel(choice.text), this);
            buttons_.addButton(button, row++);
            layout()->addWidget(button);
        }
    }

    void chooseChecked() {
        if (buttons_.checkedId() >= 0)
            group_.choose(static_cast<std::size_t>(buttons_.checkedId()));
    }

    ryv::RadioGroup& group_;
    ViewContext& context_;
    ryv::Choices shown_;
    QButtonGroup buttons_;
    ControlLink* link_ = nullptr;
};

} // namespace

QWidget* makeLabelView(ryv::Label& label, QWidget* parent) {
    auto* const view = new QLabel(parent);
    view->setTextFormat(Qt::PlainText);
    view->setWordWrap(true);
    new ControlLink(*view, label, [view, &label] { view->setText(toQt(ryv::withoutMarks(label.label()))); });
    return view;
}

QWidget* makeButtonView(
    ryv::Button& button, ViewContext& context, QWidget* parent, std::function<bool()> mayPress) {
    auto* const view = new PushButton(button, parent);
    auto* const link = new ControlLink(*view, button, [view] {
        view->takeLabel();
        view->update();
    });
    QObject::connect(view, &QPushButton::clicked, link, [link, &button, &context, mayPress] {
        link->forward(context, [&button, mayPress] {
            if (!mayPress || mayPress())
                button.press();
        });
    });
    return view;
}

QWidget* makeCheckBoxView(ryv::CheckBox& box, ViewContext& context, QWidget* parent) {
    auto* const view = new QCheckBox(parent);
    auto* const link = new ControlLink(*view, box, [view, &box] {
        view->setText(toQt(box.label()));
        view->setChecked(box.isChecked());
    });
    QObject::connect(view, &QCheckBox::clicked, link, [link, view, &box, &context] {
        link->forward(context, [view, &box] {
            if (view->isChecked() != box.isChecked())
                box.click();
        });
    });
    return view;
}

QWidget* makeRadioView(ryv::RadioGroup& group, ViewContext& context, QWidget* parent) {
    return new RadioView(group, context, parent);
}

} // namespace drafta
