// A navigation manager in a scripted host, as the module's application makes it.
#pragma once

#include "base/encoding.h"
#include "host/nav_manager.h"
#include "manager/last_project_list.h"
#include "manager/project_manager.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_platform.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ryv::test {

class NavFixture : public ::testing::Test {
protected:
    static constexpr CStringView settingsKey = u"Software\\Drafta\\Settings\\QPV";

    /// Ends the run before, if there is one, and begins another.
    void start() {
        stop();
        nav = std::make_unique<RyvPrmNavManager>();
        setNavState(nav.get());
        nav->initialise();
    }
    void stop() { nav.reset(); }

    /// Makes "C:\P\NAME.kqp", which lists "C:\P\NAME.dwg", and gives its ID.
    CString project(CStringView name) {
        const CString stem = u"C:\\P\\" + CString(name);
        files.put(stem + u".dwg", "drawing");
        files.put(stem + u".kqp", toUtf8(CString(name) + u".dwg\n"));
        return stem + u".kqp";
    }
    bool activate(CStringView name) { return nav->projectManager()->openProject(project(name), true); }

    /// LISP keeps no older list, and is or is not ready to hear which project is active.
    void scriptLisp(bool hearsActive) {
        surroundings.lisp.answer(u"c:kq_get_recent_prj_lst", HostResultBuffer().addNil());
        if (hearsActive)
            surroundings.lisp.answer(u"ryv_makeproj_active", HostResultBuffer().addTruth());
        else
            surroundings.lisp.fail(u"ryv_makeproj_active");
    }
    /// How often LISP was told which project is active.
    std::size_t timesTold() const {
        const auto& calls = surroundings.lisp.calls();
        return static_cast<std::size_t>(std::count_if(calls.begin(), calls.end(),
            [](const std::vector<CString>& each) { return each[0] == u"ryv_makeproj_active"; }));
    }
    /// A command begins and ends in the document.
    void becomeIdle(DocumentId document) {
        surroundings.documents.setQuiescent(document, false);
        surroundings.documents.setQuiescent(document, true);
    }
    DocumentId openDocument(CStringView name) {
        const DocumentId document = surroundings.documents.openDocument(name);
        nav->documentLoaded();
        return document;
    }

    MemoryFiles files;
    ScriptedPlatform surroundings{&files};
    std::unique_ptr<RyvPrmNavManager> nav;
};

} // namespace ryv::test
