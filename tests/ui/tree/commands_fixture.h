// A project with drawings and subfolders on which commands are run, a LISP that edits its file, and a disk
// that fails on demand.
#pragma once

#include "model/project.h"
#include "tests/support/fault_files.h"
#include "tests/support/project_builder.h"
#include "tests/ui/tree/tree_fixture.h"
#include "toolkit/text_field.h"
#include "ui/dialogs/work/report_dialog.h"
#include "ui/tree/tree_commands.h"

#include <algorithm>
#include <initializer_list>

namespace ryv::test {

inline constexpr const char* plainLines =
    "b.dwg\n=====SUB=S\ns2.dwg\n=====SUB=S\ns1.dwg\n=====SUB=S/T\nt.dwg\na.dwg\n";
inline constexpr const char* plainTree = "b.dwg S{s2.dwg s1.dwg T{t.dwg}} a.dwg";

class CommandsFixture : public TreeFixture {
protected:
    CommandsFixture() {
        surroundings.ports.os.files = &faults;
        surroundings.documents.open = true;
        id = open("A", plainLines, true);
    }

    void select(std::initializer_list<const char16_t*> labels) {
        std::vector<TreeItem*> items;
        for (const char16_t* const label : labels) {
            items.push_back(&row(label));
            tree->ensureVisible(*items.back());
        }
        tree->setSelection(items);
    }

    /// What the project's file holds: "b.dwg S{s.dwg}", drawings without their folder.
    std::string onDisk(const CString& project) {
        RyvPrmProject fresh;
        if (!fresh.readProject(project))
            return "unreadable";
        std::string text = treeText(fresh.getProjectData().getProjFileDetails());
        for (std::size_t at; (at = text.find("C:\\P\\")) != std::string::npos;)
            text.erase(at, 5);
        return text;
    }
    std::string onDisk() { return onDisk(id); }

    /// A LISP function that asks the user, rewrites the project's file and gives `answer`.
    void defineEditor(const char16_t* function, std::string lines,
        HostResultBuffer answer = HostResultBuffer().addTruth()) {
        surroundings.lisp.define(
            function, [this, lines, answer](const HostResultBuffer&, HostResultBuffer& out) {
                surroundings.ui.meanwhile();
                files.put(id, lines);
                out = answer;
                return LispStatus::success;
            });
    }

    std::string noticeText() { return toUtf8(tree->notice().text()); }
    /// What the next report will say, its lines parted by "|".
    const std::string& nextReport() {
        report_.clear();
        surroundings.ui.answerDialog([this](Dialog& dialog) {
            report_ = toUtf8(dialog.control<TextField>(SettingsReportDlg::textId).text());
            std::replace(report_.begin(), report_.end(), '\n', '|');
            return Dialog::idCancel;
        });
        return report_;
    }
    std::size_t lockCount() const { return surroundings.lockCheck.locked.size(); }

    FaultFiles faults{files};
    CString id;

private:
    std::string report_;
};

} // namespace ryv::test
