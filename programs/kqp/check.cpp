#include "programs/kqp/check.h"

#include "programs/kqp/finding_text.h"
#include "programs/kqp/project_input.h"
#include "programs/kqp/terminal/escape.h"

#include <algorithm>
#include <vector>

namespace kqp {

namespace {

/// How much of a line a message repeats.
constexpr std::size_t quotedUnits = 60;

/// Remembers what a reader reports; texts are shortened at once, because a file may consist of findings.
class FindingList final : public ryv::ProjectReporter {
public:
    void found(std::size_t line, ryv::ProjectFinding finding, ryv::CStringView text) override {
        findings_.push_back({line, finding, visibleShort(text, quotedUnits)});
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
            if (!finding.text.empty())
                out.write(": ").write(finding.text);
            out.write("\n");
        }
    }

    bool empty() const noexcept { return findings_.empty(); }

private:
    struct Finding {
        std::size_t line;
        ryv::ProjectFinding kind;
        std::string text;
    };
    std::vector<Finding> findings_;
};

} // namespace

int check(const std::string& file, Console& console) {
    FindingList findings;
    ryv::RyvPrmKQPFiler filer(true);
    filer.setReporter(&findings);
    ryv::RyvPrmProjectData project;
    if (!readProject(file, filer, project, console))
        return failed;
    findings.sort();
    findings.print(visibleName(file), console.out);
    return finishOutput(console, findings.empty() ? done : answerIsNo);
}

} // namespace kqp
