// A list of choices that may be long: with a field to search it, and ticks where many may be chosen.
#pragma once

#include "base/strings.h"

#include <QWidget>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QVBoxLayout;

namespace drafta {

/// The field to search with is there when the list is long.
class SearchList final : public QWidget {
public:
    /// A choice that `chosen` holds is chosen at first; what is none of the choices is left out.
    SearchList(const ryv::CStringArray& choices, const ryv::CStringArray& chosen, bool many, QWidget* parent);

    /// The chosen ones: of many in the order of choosing.
    ryv::CStringArray chosen() const;

private:
    void addSearch(QVBoxLayout& rows);
    void addTools(QVBoxLayout& rows);
    void filter(const QString& words);
    void tickShown(bool ticked);
    void noteTick(const QListWidgetItem& item);
    void tellCount();

    const ryv::CStringArray choices_;
    const bool many_;
    QListWidget* list_;
    QLabel* count_ = nullptr;
    std::vector<int> order_; // the rows that are ticked
};

} // namespace drafta
