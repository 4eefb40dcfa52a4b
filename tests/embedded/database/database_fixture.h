// Databases in a folder of their own, and questions to them.
#pragma once

#include "embedded/database/database_reader.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace drafta::test {

using ryv::CString;
using ryv::CStringView;

class DatabaseFixture : public ::testing::Test {
protected:
    static std::string recorded(const std::string& name) {
        return ryv::test::readBytes(std::string(RYV_TEST_DATA) + "/data/" + name);
    }

    /// A program in the folder, which takes the place of the reader.
    std::string script(const std::string& text) {
        folder.write("reader", "#!/bin/sh\n" + text + "\n");
        ::chmod(folder.native("reader").c_str(), 0755);
        return folder.native("reader");
    }

    /// "no row", "= VALUE", or what went wrong without the folder.
    static std::string ask(ryv::DatabaseRecordset& database, CStringView key, CStringView column,
        CStringView table = u"FILETIME", CStringView keyColumn = u"DWGNAME") {
        ryv::CStringArray row = {u"unset"};
        CString problem;
        if (!database.query(
                {CString(table), CString(column), CString(keyColumn), CString(key)}, row, problem)) {
            EXPECT_EQ(row, ryv::CStringArray{u"unset"});
            return withoutFolder(problem);
        }
        return row.empty() ? "no row" : "= " + ryv::toUtf8(row.at(0));
    }

    /// The same for a file in the folder, freshly opened.
    std::string askFile(const std::string& name, CStringView key, CStringView column = u"SH",
        CStringView table = u"FILETIME") {
        CString problem;
        const auto database = reader.open(folder.native(name), problem);
        return database ? ask(*database, key, column, table) : withoutFolder(problem);
    }

    static std::string withoutFolder(const CString& problem) {
        const std::string text = ryv::toUtf8(problem);
        EXPECT_TRUE(text.starts_with("/")) << text;
        const std::size_t name = text.rfind('/', text.find(": ")) + 1;
        return text.substr(name);
    }

    ryv::test::TempFolder folder;
    DatabaseReaderOptions options{DRAFTA_MDB_READER, {std::chrono::seconds(15)}};
    DatabaseReader reader{options};
};

} // namespace drafta::test
