// The module's own dialogs and toolbar in each language at the scale that the environment sets: no text is
// cut, and each letter leads to one place.
#include "embedded/qt/controls/control_view.h"
#include "embedded/qt/dialogs/dialog_window.h"
#include "embedded/qt/look/outlined_style.h"
#include "embedded/qt/qt_text.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "tests/embedded/qt/cut_texts.h"
#include "tests/embedded/qt/speaking.h"
#include "tests/support/scripted_platform.h"
#include "toolkit/property_sheet.h"
#include "ui/dialogs/creation/new_drawing_dialog.h"
#include "ui/dialogs/creation/new_project_dialog.h"
#include "ui/dialogs/drawing_list_dialog.h"
#include "ui/dialogs/settings/override_dialog.h"
#include "ui/dialogs/sheets/drawing_sheet.h"
#include "ui/dialogs/sheets/project_sheet.h"
#include "ui/dialogs/work/compare_dialog.h"
#include "ui/dialogs/work/report_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace drafta {
namespace {

using ryv::CString;
using ryv::Dialog;

/// What the drop-down arrow leaves free is enough for the longest of the choices.
QStringList cutChoices(const QWidget& window) {
    QStringList cut;
    for (const QComboBox* const box : window.findChildren<QComboBox*>())
        for (int i = 0; box->isVisible() && !box->isEditable() && i < box->count(); ++i)
            if (box->width() < box->fontMetrics().horizontalAdvance(box->itemText(i)))
                cut += box->itemText(i);
    return cut;
}

void expectRoom(QWidget& window, const std::string& what) {
    EXPECT_EQ((test::cutTexts(window) + cutChoices(window)).join(u';').toStdString(), "") << what;
}

/// Of controls that can be met at the same time: those of a page and the dialog's own.
void countLetters(std::map<QChar, QString>& letters, const ryv::Control& control, const std::string& what) {
    const QString label = toQt(control.label());
    const qsizetype mark = label.indexOf(u'&');
    if (mark < 0 || mark + 1 == label.size())
        return;
    const auto [place, isNew] = letters.emplace(label[mark + 1].toUpper(), label);
    EXPECT_TRUE(isNew) << what << ": " << label.toStdString() << " and " << place->second.toStdString();
}

void expectLetters(Dialog& dialog, const std::string& what) {
    std::map<QChar, QString> letters;
    for (const auto& button : dialog.buttons())
        countLetters(letters, *button, what);
    for (const ryv::Panel* const panel : dialog.panels())
        for (const ryv::Panel::Place& place : panel->places())
            countLetters(letters, *place.control, what);
}

std::ptrdiff_t warningCount(const Dialog& dialog) {
    const auto controls = dialog.controls();
    return std::count_if(controls.begin(), controls.end(),
        [](const ryv::Control* control) { return !control->warning().empty(); });
}

class LooksOfTheModule : public ::testing::Test {
protected:
    LooksOfTheModule() {
        QApplication::setStyle(new OutlinedStyle);
        setNavState(&state_);
        state_.createProjectManager();
        context_.perform = [](const std::function<void()>& work) { work(); };
    }
    ~LooksOfTheModule() override {
        state_.destroyProjectManager();
        QApplication::setStyle(QStringLiteral("Fusion"));
    }

    void look(Dialog& dialog, const std::string& what) {
        dialog.begin();
        expectLetters(dialog, what);
        const WindowSizes sizes{[](const QString&) { return QSize(); }, [](const QString&, QSize) {}};
        DialogWindow window(dialog, context_, sizes, nullptr);
        window.show();
        auto* const sheet = dynamic_cast<ryv::PropertySheet*>(&dialog);
        for (int page = 0; page == 0 || (sheet && page < static_cast<int>(sheet->pages().size())); ++page) {
            if (sheet)
                sheet->turnTo(page);
            QApplication::processEvents();
            expectRoom(window, what + ", page " + std::to_string(page));
            if (!pictures_.isEmpty())
                window.grab().save(
                    QStringLiteral("%1/%2-%3.png").arg(pictures_, QString::fromStdString(what)).arg(page));
        }
        window.hide();
        dialog.pressCancel();
    }

    ryv::test::ScriptedPlatform surroundings_;
    ryv::NavState state_;
    ViewContext context_;
    const QString pictures_ = qEnvironmentVariable("LOOKS_PICTURES"); // a folder for them, if they are wanted
};

TEST_F(LooksOfTheModule, dialogs_cutNoTextAndUseEachLetterOnce) {
    for (const ryv::Language language : test::languages) {
        const test::Speaking speaking(language);
        const std::string in = language == ryv::Language::german ? "de " : "en ";
        ryv::CRyvCfgProjPropSheet project(u"PUMPS", {});
        look(project, in + "project");
        ryv::CRyvCfgDrawingPropSheet drawing(
            u"a.dwg", {ryv::RyvPrmFileDetails(u"\\p\\a.dwg"), true, {}, u"PUMPS"});
        look(drawing, in + "drawing");
        const CString odd = u"a value that none of its rules knows";
        ryv::ProjectValues oddProject;
        for (int index = 0; index <= ryv::RyvCfgDrawingSettings::getMaxBracketIndex(); ++index)
            oddProject.settings.setValue(index, &odd);
        for (const int index : {1, 2, 3, 4, 8})
            oddProject.misc.setValue(index, &odd);
        ryv::CRyvCfgProjPropSheet doubtful(u"PUMPS", oddProject);
        EXPECT_GT(warningCount(doubtful), 40);
        look(doubtful, in + "doubtful");
        ryv::CRyvCfgCrossRefCompOverrideDlg override({});
        look(override, in + "override");
        ryv::CRyvPrmDwgListConfigDlg list;
        look(list, in + "drawing list");
        ryv::CRyvCfgProjNewDlg newProject([](const ryv::NewProjectValues&) { return true; });
        look(newProject, in + "new project");
        ryv::CRyvCfgDrawingNewDlg newDrawing(u"C:\\P\\a.kqp", {});
        look(newDrawing, in + "new drawing");
        ryv::CRyvCfgDwgSettingsCompareDlg compare(u"a.dwg", u"PUMPS", {}, {});
        look(compare, in + "compare");
        ryv::SettingsReportDlg report(u"a", {u"b"});
        look(report, in + "report");
    }
}

} // namespace
} // namespace drafta
