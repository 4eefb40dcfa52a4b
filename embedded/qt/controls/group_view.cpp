#include "embedded/qt/controls/captioned_pages.h"
#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/controls/control_views.h"
#include "embedded/qt/controls/label_texts.h"

namespace drafta {

namespace {

class GroupView final : public CaptionedPages {
public:
    GroupView(ryv::GroupControl& group, ViewContext& context, QWidget* parent)
        : CaptionedPages({[this](int page) { forward([this, page] { group_.click(page); }); },
                             [this] { forward([this] { group_.setMinimized(!group_.isMinimized()); }); }},
              parent),
          group_(group), context_(context) {
        link_ = new ControlLink(*this, group, [this] { take(); });
    }

private:
    void forward(std::function<void()> gesture) { link_->forward(context_, std::move(gesture)); }

    void take() {
        for (auto page = static_cast<std::size_t>(count()); page < group_.pages().size(); ++page) {
            const ryv::GroupControl::Page& added = group_.pages()[page];
            addPage(asWidgetLabel(added.caption), *makeControlView(*added.content, context_, this));
        }
        show(group_.selectedPage(), group_.isMinimized());
    }

    ryv::GroupControl& group_;
    ViewContext& context_;
    ControlLink* link_ = nullptr;
};

} // namespace

QWidget* makeGroupView(ryv::GroupControl& group, ViewContext& context, QWidget* parent) {
    return new GroupView(group, context, parent);
}

} // namespace drafta
