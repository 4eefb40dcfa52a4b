// Drawings made and read by an independent library, so that our own reader is not its own judge.
#pragma once

#include "tests/support/temp_folder.h"

#include <string>
#include <vector>

namespace drafta::test {

/// A line of what report_drawing.py says: its cells.
using ReportLine = std::vector<std::string>;

/// Runs a Python script beside the tests under an interpreter that has ezdxf. Throws, with a text that says
/// what to install, when there is none, and when the script fails.
std::string runScript(const std::string& script, const std::vector<std::string>& arguments);

/// What the independent reader finds in one drawing file.
std::vector<ReportLine> reportOn(const std::string& nativePath);

/// The lines that begin with a word.
std::vector<ReportLine> linesOf(const std::vector<ReportLine>& report, const std::string& word);

/// A folder with the drawings that make_drawings.py makes; made once, gone when the tests end.
const ryv::test::TempFolder& madeDrawings();

} // namespace drafta::test
