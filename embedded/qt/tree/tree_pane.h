// A tree with the field above it that filters its rows.
#pragma once

#include "embedded/qt/controls/control_view.h"
#include "toolkit/tree_control.h"

#include <QWidget>

class QLineEdit;

namespace drafta {

class TreeView;

/// Ctrl+F leads from the rows to the field, Down and Enter back; Esc shows all rows again.
class TreePane final : public QWidget, private ryv::TreeObserver {
public:
    TreePane(ryv::TreeControl& control, ViewContext& context, QWidget* parent);
    ~TreePane() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void inserted() override { countLater(); }
    void removed() override { countLater(); }
    void changed(ryv::TreeItem&) override { countLater(); }
    void reset() override;

    void setUpFilter();
    bool filterKey(int key);
    void goToRows();
    void countLater();
    void tellCount();

    ryv::TreeControl& control_;
    QLineEdit* filter_;
    TreeView* tree_;
    bool counting_ = false;
};

} // namespace drafta
