// The module's LISP functions on real files, called as LISP code would call them.
#pragma once

#include "embedded/os/posix_files.h"
#include "host/lisp_functions.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "resources/messages.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {

/// Project "a.kqp" is open and active, "b.kqp" and "c.kqp" are there, and so is the folder "sub".
class LispFixture : public ::testing::Test {
protected:
    LispFixture() {
        surroundings.userFolders.settingsFolder = path("");
        setNavState(&state);
        state.createProjectManager();
        for (const char* const name : {"a.kqp", "b.kqp", "c.kqp"})
            folder.write(name, "\n");
        std::filesystem::create_directory(folder.native("sub"));
        manager().openProject(path("a.kqp"), true);
        registerLispFunctions();
    }
    ~LispFixture() override {
        state.destroyProjectManager();
        setNavState(nullptr);
    }

    RyvPrmProjectManager& manager() { return *state.projectManager(); }
    CString path(const std::string& name) const { return folder.module() + u'\\' + decodeUtf8(name); }
    bool stands(const std::string& name) const { return std::filesystem::exists(folder.native(name)); }
    /// The names of the open projects in their order, the active one with a star: "a* b".
    std::string projects() {
        std::string names;
        for (int i = 0; i < manager().getProjectCount(); ++i) {
            const CString id = manager().getProject(i)->getProjectID();
            CString name;
            manager().getProjNameFromID(id, name);
            names += (i == 0 ? "" : " ") + toUtf8(name) + (manager().isActiveProject(id) ? "*" : "");
        }
        return names;
    }

    /// What a call comes to, as "value/status"; a text of the catalogue is shown by its number, "<127>".
    std::string call(CStringView function, const HostResultBuffer& arguments = {}) {
        const LispReply reply = surroundings.lisp.call(function, arguments);
        return value(reply.value) + "/" + std::to_string(reply.status);
    }
    std::string call(CStringView function, const CString& text) {
        return call(function, HostResultBuffer().addString(text));
    }
    std::string call(CStringView function, const CString& text, std::int16_t number) {
        return call(function, HostResultBuffer().addString(text).addInteger(number));
    }
    std::string call(CStringView function, const CString& first, const CString& second) {
        return call(function, HostResultBuffer().addString(first).addString(second));
    }

    TempFolder folder;
    drafta::PathMapper mapper;
    drafta::PosixFiles files{mapper};
    ScriptedPlatform surroundings{&files};
    NavState state;

private:
    static std::string value(const HostResultBuffer& chain) {
        if (const std::int16_t* const number = chain.integerAt(0))
            return std::to_string(*number);
        if (const CString* const text = chain.stringAt(0)) {
            for (const int number : {121, 122, 127})
                if (*text == messageText(number))
                    return "<" + std::to_string(number) + ">";
            return shown(*text);
        }
        return chain.at(0).type == ResultType::truth ? "T" : "nil";
    }
};

} // namespace ryv::test
