#include "tests/embedded/drawings/independent_reader.h"
#include "tests/support/process.h"

#include <sstream>
#include <stdexcept>

namespace drafta::test {

namespace {

/// The system's own interpreter first: another one in PATH may lack the system's packages.
std::string findInterpreter() {
    for (const char* const candidate : {"/usr/bin/python3", "python3"})
        try {
            if (ryv::test::runProcess({candidate, "-c", "import ezdxf"}).exitCode == 0)
                return candidate;
        } catch (const std::exception&) {
            continue; // no such program
        }
    throw std::runtime_error("no Python with ezdxf: install python3-ezdxf");
}

const std::string& interpreter() {
    static const std::string found = findInterpreter();
    return found;
}

} // namespace

std::string runScript(const std::string& script, const std::vector<std::string>& arguments) {
    std::vector<std::string> words{interpreter(), std::string(DRAFTA_DRAWING_SCRIPTS) + "/" + script};
    words.insert(words.end(), arguments.begin(), arguments.end());
    ryv::test::ProcessSetUp setUp;
    setUp.environment = {{"PYTHONUTF8", "1"}, {"PYTHONDONTWRITEBYTECODE", "1"}};
    const ryv::test::ProcessResult result = ryv::test::runProcess(words, setUp);
    if (result.exitCode != 0)
        throw std::runtime_error(script + " failed:\n" + result.error);
    return result.out;
}

std::vector<ReportLine> reportOn(const std::string& nativePath) {
    std::vector<ReportLine> report;
    std::istringstream lines(runScript("report_drawing.py", {nativePath}));
    for (std::string line; std::getline(lines, line);) {
        ReportLine& cells = report.emplace_back();
        std::size_t at = 0;
        for (std::size_t tab = 0; tab != std::string::npos; at = tab + 1) {
            tab = line.find('\t', at);
            cells.push_back(line.substr(at, tab - at));
        }
    }
    return report;
}

std::vector<ReportLine> linesOf(const std::vector<ReportLine>& report, const std::string& word) {
    std::vector<ReportLine> lines;
    for (const ReportLine& line : report)
        if (line.front() == word)
            lines.push_back(line);
    return lines;
}

const ryv::test::TempFolder& madeDrawings() {
    static const ryv::test::TempFolder folder;
    static const std::string made = runScript("make_drawings.py", {folder.native()});
    return folder;
}

} // namespace drafta::test
