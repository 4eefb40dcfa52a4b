// Keeps what a reader or writer of project files reports.
#pragma once

#include "siblings/project_findings.h"
#include "tests/support/text.h"

#include <ostream>
#include <vector>

namespace ryv::test {

struct Finding {
    std::size_t line = 0;
    ProjectFinding finding = ProjectFinding::undecodableBytes;
    CString text;

    bool operator==(const Finding&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Finding& finding) {
    return out << "line " << finding.line << ": finding " << static_cast<int>(finding.finding) << " "
               << shown(finding.text.substr(0, 80));
}

class FindingRecorder final : public ProjectReporter {
public:
    void found(std::size_t line, ProjectFinding finding, CStringView text) override {
        findings.push_back({line, finding, CString(text)});
    }
    std::size_t count(ProjectFinding wanted) const {
        std::size_t number = 0;
        for (const Finding& each : findings)
            number += each.finding == wanted ? 1 : 0;
        return number;
    }

    std::vector<Finding> findings;
};

} // namespace ryv::test
