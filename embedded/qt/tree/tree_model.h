// The rows of a tree control as Qt's views want them. Nothing is copied.
#pragma once

#include "toolkit/tree_control.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>

namespace drafta {

/// Shows the rows that pass the filter. Rows deeper than `levels` are left out, since tree views of Qt need
/// stack for each level. When very many rows come and go one after the other, the model is empty until
/// control is back in the event loop: views look at all that they remember for each notice.
class TreeModel final : public QAbstractItemModel, private ryv::TreeObserver {
public:
    static constexpr int levels = 200;

    /// The control outlives the model.
    TreeModel(ryv::TreeControl& control, QObject* parent);
    ~TreeModel() override;

    /// Null for an invalid index.
    static ryv::TreeItem* item(const QModelIndex& index);

    /// Invalid for null and for rows that the model does not show now.
    QModelIndex indexOf(const ryv::TreeItem* item) const;

    /// Shows rows again at once. For whoever needs an index now; the tree is not in the middle of a change.
    void resume();

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    enum class Told { nothing, insertion, removal, move, reset };

    void aboutToInsert(ryv::TreeItem* parent, std::size_t row, std::size_t count) override;
    void inserted() override { complete(); }
    void aboutToRemove(ryv::TreeItem* parent, std::size_t row, std::size_t count) override;
    void removed() override { complete(); }
    void aboutToMove(ryv::TreeItem& item, ryv::TreeItem* parent, std::size_t row) override;
    void moved() override { complete(); }
    void aboutToReset() override;
    void reset() override { complete(); }
    void changed(ryv::TreeItem& item) override;

    const QIcon& icon(int image) const;
    bool isQuiet();
    void suspend();
    void tellInsertion(ryv::TreeItem* parent, int row, int count);
    void tellRemoval(ryv::TreeItem* parent, int row, int count);
    void tellReset();
    void complete();

    ryv::TreeControl& control_;
    mutable QHash<int, QIcon> icons_; // by image
    Told told_ = Told::nothing;
    int notices_ = 0; // since control was in the event loop
    bool suspended_ = false;
};

} // namespace drafta
