#include "embedded/qt/dialogs/search_list.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace drafta {

namespace {
constexpr std::size_t rowsSeenAtOnce = 10;
} // namespace

SearchList::SearchList(
    const ryv::CStringArray& choices, const ryv::CStringArray& chosen, bool many, QWidget* parent)
    : QWidget(parent), choices_(choices), many_(many), list_(new QListWidget(this)) {
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(metrics::gap / 2);
    for (const ryv::CString& choice : choices_) {
        auto* const item = new QListWidgetItem(toQt(choice), list_);
        if (many)
            item->setCheckState(Qt::Unchecked);
    }
    connect(list_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { noteTick(*item); });
    if (choices_.size() > rowsSeenAtOnce)
        addSearch(*rows);
    rows->addWidget(list_, 1);
    if (many)
        addTools(*rows);
    for (const ryv::CString& choice : chosen) {
        const auto found = std::find(choices_.begin(), choices_.end(), choice);
        if (found == choices_.end())
            continue;
        QListWidgetItem* const item = list_->item(static_cast<int>(found - choices_.begin()));
        if (many)
            item->setCheckState(Qt::Checked);
        else
            list_->setCurrentItem(item);
    }
    const int seen = static_cast<int>(std::clamp<std::size_t>(choices_.size(), 4, rowsSeenAtOnce));
    list_->setMinimumHeight((seen + 1) * (fontMetrics().height() + metrics::rowPadding));
    list_->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    setFocusProxy(list_);
}

void SearchList::addSearch(QVBoxLayout& rows) {
    auto* const search = new QLineEdit(this);
    search->setPlaceholderText(tr("Find"));
    search->setAccessibleName(tr("Find in the list"));
    search->setClearButtonEnabled(true);
    if (const QIcon icon = themeIcon("search"); !icon.isNull())
        search->addAction(icon, QLineEdit::LeadingPosition);
    connect(search, &QLineEdit::textChanged, this, [this](const QString& words) { filter(words); });
    rows.addWidget(search);
}

void SearchList::addTools(QVBoxLayout& rows) {
    auto* const tools = new QHBoxLayout;
    const auto add = [&](const QString& text, bool ticks) {
        auto* const button = new QPushButton(text, this);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, ticks] { tickShown(ticks); });
        tools->addWidget(button);
    };
    add(tr("&All"), true);
    add(tr("&None"), false);
    count_ = new QLabel(this);
    tools->addStretch(1);
    tools->addWidget(count_);
    rows.addLayout(tools);
    tellCount();
}

void SearchList::filter(const QString& words) {
    for (int row = 0; row < list_->count(); ++row)
        list_->setRowHidden(row, !list_->item(row)->text().contains(words, Qt::CaseInsensitive));
}

/// What the search has hidden keeps its tick.
void SearchList::tickShown(bool ticked) {
    for (int row = 0; row < list_->count(); ++row)
        if (!list_->isRowHidden(row))
            list_->item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

void SearchList::noteTick(const QListWidgetItem& item) {
    if (!many_)
        return;
    const int row = list_->row(&item);
    const auto place = std::find(order_.begin(), order_.end(), row);
    if (item.checkState() == Qt::Checked && place == order_.end())
        order_.push_back(row);
    else if (item.checkState() == Qt::Unchecked && place != order_.end())
        order_.erase(place);
    tellCount();
}

void SearchList::tellCount() {
    if (count_)
        count_->setText(tr("%1 of %2 chosen").arg(order_.size()).arg(choices_.size()));
}

ryv::CStringArray SearchList::chosen() const {
    ryv::CStringArray texts;
    for (const int row : order_)
        texts.push_back(choices_[static_cast<std::size_t>(row)]);
    if (!many_ && list_->currentRow() >= 0)
        texts.push_back(choices_[static_cast<std::size_t>(list_->currentRow())]);
    return texts;
}

} // namespace drafta
