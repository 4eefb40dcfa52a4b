// Which fields the project tree names a drawing by, in which order and with what between them.
#pragma once

#include "toolkit/dialog.h"
#include "toolkit/list_box.h"

namespace ryv {

/// Edits the user's display setting (manager/display_setting.h): loads it when it opens and stores it with
/// OK. A setting that cannot be read counts as none; of a stored order, codes of no field and repetitions are
/// passed over. Several fields need a separator, and one field has to be shown; a message box says so.
class CRyvPrmDwgListConfigDlg : public Dialog {
public:
    static constexpr int availableId = 1001;
    static constexpr int addId = 1002;
    static constexpr int removeId = 1003;
    static constexpr int shownId = 1004;
    static constexpr int upId = 1005;
    static constexpr int downId = 1006;
    static constexpr int separatorId = 1007;
    static constexpr int showSelectionId = 1008;

    CRyvPrmDwgListConfigDlg();

protected:
    bool onInit() override;
    void onChange(Control& control) override;
    void onPress(int id) override;
    bool onOk() override;

private:
    ListBox& available() const { return control<ListBox>(availableId); }
    ListBox& shown() const { return control<ListBox>(shownId); }
    void addField();
    void removeField();
    void moveField(bool up);
    void enableButtons();
    bool isComplete(const CArray<int>& order, const CString& separator);

    Subscription addsByDoubleClick_;
    Subscription removesByDoubleClick_;
};

} // namespace ryv
