// Drawing files in a folder of their own, and views of them.
#pragma once

#include "embedded/drawings/drawing_view.h"
#include "embedded/os/posix_files.h"
#include "tests/embedded/drawings/independent_reader.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace drafta::test {

using ryv::CString;
using ryv::CStringView;
using ryv::DrawingPoint;
using ryv::DrawingResult;
using ryv::test::shown;

class DrawingFixture : public ::testing::Test {
protected:
    /// A recorded drawing, by its name without extension.
    static std::string recorded(const std::string& name) {
        return ryv::test::readBytes(std::string(RYV_TEST_DATA) + "/data/" + name + ".dwg");
    }

    /// Writes a file into the folder and opens it; null, with `problem` set, when that fails.
    std::shared_ptr<Drawing> load(const std::string& bytes, const std::string& name = "a.dwg") {
        folder.write(name, bytes);
        DrawingResult result;
        auto drawing = Drawing::load(files, folder.module(ryv::fromAscii(name)), result);
        problem = ryv::toUtf8(result.problem);
        EXPECT_EQ(drawing != nullptr, result.ok()) << problem;
        return drawing;
    }
    /// A view of recorded or other content that has to be a drawing.
    DrawingView view(const std::string& bytes, const std::string& name = "a.dwg") {
        auto drawing = load(bytes, name);
        if (!drawing)
            throw std::runtime_error(problem);
        return DrawingView(std::move(drawing));
    }

    static std::string read(DrawingView& view, CStringView tag) {
        CString value = u"(none)";
        view.readAttribute(tag, value);
        return ryv::toUtf8(value);
    }

    /// The bytes between what two contents have in common at the begin and at the end: old, new.
    static std::pair<std::string, std::string> difference(std::string_view before, std::string_view after) {
        std::size_t head = 0, tail = 0;
        const std::size_t least = std::min(before.size(), after.size());
        while (head < least && before[head] == after[head])
            ++head;
        while (tail < least - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
            ++tail;
        return {std::string(before.substr(head, before.size() - head - tail)),
            std::string(after.substr(head, after.size() - head - tail))};
    }

    /// Saves the view's drawing and asks the independent reader, which must find no fault.
    std::vector<ReportLine> saved(DrawingView& view, const std::string& name = "a.dwg") {
        const DrawingResult result = view.save();
        EXPECT_TRUE(result.ok()) << ryv::toUtf8(result.problem);
        std::vector<ReportLine> report = reportOn(folder.native(name));
        EXPECT_EQ(linesOf(report, "fault"), std::vector<ReportLine>());
        return report;
    }

    ryv::test::TempFolder folder;
    PathMapper mapper;
    PosixFiles files{mapper};
    std::string problem;
};

/// The block file that the system comes with.
inline std::string settingsBlock() {
    return ryv::test::readBytes(std::string(RYV_TEST_DATA) + "/data/KQ_M.dwg");
}

} // namespace drafta::test
