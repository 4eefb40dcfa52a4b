// What the tests of the project tree's commands share.
#pragma once

#include "tests/ui/tree/commands_fixture.h"

namespace ryv::test {

class CommandRuns : public CommandsFixture {
protected:
    ScriptedUserInterface& ui = surroundings.ui;
    ScriptedDocuments& documents = surroundings.documents;

    void run(int command) { EXPECT_TRUE(tree->runCommand(command)) << command; }
    HostResultBuffer lastCall(CStringView function) const {
        HostResultBuffer last;
        for (const HostResultBuffer& call : surroundings.lisp.chains())
            if (call.stringAt(0) && *call.stringAt(0) == function)
                last = call;
        return last;
    }
    static CStringArray textsOf(const HostResultBuffer& values) {
        CStringArray texts;
        for (std::size_t i = 0; i < values.size(); ++i)
            if (const CString* const text = values.stringAt(i))
                texts.push_back(*text);
        return texts;
    }
};

} // namespace ryv::test
