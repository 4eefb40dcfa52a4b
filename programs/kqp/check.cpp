#include "programs/kqp/check.h"

#include "programs/kqp/finding_text.h"
#include "programs/kqp/project_input.h"
#include "programs/kqp/terminal/escape.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

namespace kqp {

namespace {

/// How much of a line a message repeats.
constexpr std::size_t quotedUnits = 60;

/// Remembers what a reader reports. A file may consist of findings, so as little as can be is kept of each:
/// texts that are part of the file's own text, which outlives the list, as a view of it.
class FindingList final : public ryv::ProjectReporter {
public:
    explicit FindingList(const ryv::ProjectSections& sections) : sections_(sections) {}

    void found(std::size_t line, ryv::ProjectFinding finding, ryv::CStringView text) override {
        text = text.substr(0, quotedUnits + 2); // enough to see that there is more, and not to cut a pair
        if (!isOfTheFile(text))
            text = copies_.emplace_back(text);
        findings_.push_back({text.data(), static_cast<std::uint32_t>(text.size()),
            static_cast<std::uint32_t>(line), finding});
    }

    /// By line; what was found in one line stays in the order in which it was found.
    void sort() {
        const auto earlier = [](const Finding& a, const Finding& b) { return a.line < b.line; };
        std::stable_sort(findings_.begin(), findings_.end(), earlier);
    }

    void print(std::string_view file, Output& out) const {
        for (const Finding& finding : findings_) {
            out.write(file).write(":");
            if (finding.line != 0)
                out.write(std::to_string(finding.line)).write(":");
            out.write(" ").write(describe(finding.kind));
            if (finding.length != 0)
                out.write(": ").write(visibleShort({finding.text, finding.length}, quotedUnits));
            out.write("\n");
        }
    }

    bool empty() const noexcept { return findings_.empty(); }

private:
    struct Finding {
        const char16_t* text;
        std::uint32_t length;
        std::uint32_t line;
        ryv::ProjectFinding kind;
    };

    bool isOfTheFile(ryv::CStringView text) const {
        const ryv::CString& whole = *sections_.text();
        const std::less_equal<> notBehind;
        return notBehind(whole.data(), text.data()) &&
               notBehind(text.data() + text.size(), whole.data() + whole.size());
    }

    const ryv::ProjectSections& sections_;
    std::vector<Finding> findings_;
    std::deque<ryv::CString> copies_;
};

} // namespace

int check(const std::string& file, Console& console) {
    ryv::RyvPrmKQPFiler filer(true);
    FindingList findings(filer.sections());
    filer.setReporter(&findings);
    ryv::RyvPrmProjectData project;
    if (!readOpenProject(file, filer, project, console))
        return failed;
    findings.sort();
    findings.print(visibleName(file), console.out);
    return finishOutput(console, findings.empty() ? done : answerIsNo);
}

} // namespace kqp
