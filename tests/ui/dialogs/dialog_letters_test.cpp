// The letters that reach controls with the Alt key: each stands once among what is on screen at a time.
#include "base/encoding.h"
#include "base/fold.h"
#include "manager/nav_state.h"
#include "resources/language.h"
#include "tests/support/scripted_platform.h"
#include "ui/dialogs/creation/new_drawing_dialog.h"
#include "ui/dialogs/creation/new_project_dialog.h"
#include "ui/dialogs/drawing_list_dialog.h"
#include "ui/dialogs/settings/override_dialog.h"
#include "ui/dialogs/sheets/drawing_sheet.h"
#include "ui/dialogs/sheets/project_sheet.h"
#include "ui/dialogs/work/compare_dialog.h"
#include "ui/dialogs/work/report_dialog.h"

#include <gtest/gtest.h>

#include <map>

namespace ryv::test {
namespace {

class Letters {
public:
    void add(const Control& control) {
        const CStringView label = control.label();
        const std::size_t mark = label.find(u'&');
        if (mark == CStringView::npos || mark + 1 >= label.size() || label[mark + 1] == u'&')
            return;
        ++count_;
        const CString letter = toUpper(label.substr(mark + 1, 1));
        const auto [first, isNew] = owners_.emplace(letter, label);
        EXPECT_TRUE(isNew) << toUtf8(first->second) << " and " << toUtf8(label);
    }
    void add(const std::vector<Panel*>& panels) {
        for (const Panel* const panel : panels)
            for (const Panel::Place& place : panel->places())
                add(*place.control);
    }
    std::size_t count() const { return count_; }

private:
    std::map<CString, CString> owners_;
    std::size_t count_ = 0;
};

/// How many letters there are, hidden controls among them, since these may be shown.
std::size_t checkLetters(const Dialog& dialog) {
    SCOPED_TRACE(toUtf8(dialog.name()));
    Letters frame;
    frame.add(dialog.panels());
    for (const auto& button : dialog.buttons())
        frame.add(*button);
    std::size_t count = frame.count();
    if (const auto* const sheet = dynamic_cast<const PropertySheet*>(&dialog))
        for (const PropertySheet::Page& page : sheet->pages()) {
            SCOPED_TRACE(toUtf8(page.name));
            Letters shown = frame;
            shown.add(page.panels);
            count += shown.count() - frame.count();
        }
    return count;
}

TEST(DialogLetters, inEachLanguage_standOnceInADialogOrPage) {
    for (const Language language : {Language::english, Language::german}) {
        SCOPED_TRACE(language == Language::german ? "German" : "English");
        setLanguage(language);
        ScriptedPlatform surroundings;
        surroundings.documents.open = true;
        NavState state;
        setNavState(&state);
        EXPECT_EQ(checkLetters(CRyvPrmDwgListConfigDlg()), 8u);
        EXPECT_EQ(checkLetters(CRyvCfgProjNewDlg([](const NewProjectValues&) { return true; })), 9u);
        EXPECT_EQ(checkLetters(CRyvCfgDrawingNewDlg(u"", {})), 18u);
        EXPECT_EQ(checkLetters(SettingsReportDlg(u"Report", {u"line"})), 1u);
        EXPECT_EQ(checkLetters(CRyvCfgDwgSettingsCompareDlg(u"a.dwg", u"A", {}, {})), 3u);
        checkLetters(CRyvCfgCrossRefCompOverrideDlg({}));
        checkLetters(CRyvCfgProjPropSheet(u"", ProjectValues()));
        checkLetters(CRyvCfgDrawingPropSheet(u"", {RyvPrmFileDetails(u"C:\\P\\a.dwg"), true, {}, u"A"}));
    }
    setLanguage(Language::english);
}

} // namespace
} // namespace ryv::test
