#include "embedded/qt/tree/notice_view.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_views.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QToolButton>

namespace drafta {

namespace {

/// Colours are looked up when it is drawn, so that it follows a change of the theme.
class OfferButton final : public QToolButton {
public:
    using QToolButton::QToolButton;

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override {
        QToolButton::initStyleOption(option);
        option->palette.setColor(QPalette::ButtonText, currentTheme().accent);
    }
};

} // namespace

NoticeView::NoticeView(ryv::NoticeLine& notice, ViewContext& context, QWidget* parent)
    : QFrame(parent), notice_(notice), context_(context), text_(new QLabel(this)),
      offer_(new OfferButton(this)), close_(new QToolButton(this)),
      changes_(notice.changed.subscribe([this](const ryv::Control&) { follow(); })) {
    setUp();
    follow();
}

void NoticeView::setUp() {
    setObjectName(QStringLiteral("notice"));
    setFrameShape(StyledPanel);
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    offer_->setObjectName(QStringLiteral("noticeOffer"));
    offer_->setAutoRaise(true);
    offer_->setFocusPolicy(Qt::StrongFocus);
    offer_->setCursor(Qt::PointingHandCursor);
    close_->setObjectName(QStringLiteral("noticeClose"));
    close_->setAutoRaise(true);
    close_->setFocusPolicy(Qt::TabFocus);
    close_->setIcon(themeIcon("close"));
    close_->setText(QStringLiteral("\u00d7"));
    close_->setToolTip(tr("Close this message"));
    close_->setAccessibleName(tr("Close this message"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(metrics::gap, metrics::gap / 2, metrics::gap / 2, metrics::gap / 2);
    layout->addWidget(text_, 1);
    layout->addWidget(offer_);
    layout->addWidget(close_);
    connect(offer_, &QToolButton::clicked, this,
        [this] { context_.perform([&notice = notice_] { notice.accept(); }); });
    connect(close_, &QToolButton::clicked, this, [this] { notice_.clear(); });
}

void NoticeView::follow() {
    const QString text = toQt(notice_.text());
    const bool isNew = !text.isEmpty() && text != text_->text();
    text_->setText(text);
    offer_->setText(toQt(notice_.offer()));
    offer_->setVisible(!notice_.offer().empty());
    offer_->setEnabled(notice_.isEnabled());
    setAccessibleName(text);
    setVisible(!text.isEmpty() && notice_.isVisible());
    if (isNew) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void NoticeView::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(rect(), currentTheme().noticeBase);
    QFrame::paintEvent(event);
}

QWidget* makeNoticeView(ryv::NoticeLine& notice, ViewContext& context, QWidget* parent) {
    return new NoticeView(notice, context, parent);
}

} // namespace drafta
