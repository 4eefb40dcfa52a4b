// Builds the tree of a project from the drawing-section lines of its file.
#pragma once

#include "model/drawing_pool.h"
#include "model/project_data.h"
#include "siblings/project_sections.h"

#include <memory>
#include <unordered_set>
#include <vector>

namespace ryv {

/// Takes the lines one after another. A pending drawing collects the attribute lines in front of its path
/// line; a subfolder marker places it in the tree at once, so that the order of the tree is that of the
/// markers.
class DrawingSectionReader {
public:
    /// All three outlive the reader; `reporter` may be null.
    DrawingSectionReader(RyvPrmProjectData& data, const ProjectSections& sections, ProjectReporter* reporter);

    /// An attribute line: one that begins with "=".
    void attributeLine(std::size_t line);

    /// A path line, of which `path` was made; closes the pending drawing.
    void pathLine(std::size_t line, CStringView path);

    /// After the last line: a drawing without a path line is taken out again.
    void finish();

    /// The names of the drawings that were read, in the order of the file, and their identifiers.
    CStringArray names() const;
    void assignFileIds(const CArray<std::int32_t>& ids);
    bool empty() const noexcept { return count() == 0; }

private:
    /// Records with a path line: only the last one may lack it.
    std::size_t count() const noexcept;
    void startPool();
    void begin();
    void descriptionLine(CStringView text, CStringView value);
    void markerLine(CStringView text);
    RyvPrmSubfolder* subfolderOf(CStringView marker);
    void place(RyvPrmSubfolder& subfolder);
    void setOnce(bool& stood, CStringView text);
    void report(ProjectFinding finding, CStringView text) const;
    void checkPath(CStringView path);

    RyvPrmProjectData& data_;
    const ProjectSections& sections_;
    ProjectReporter* reporter_;
    std::vector<std::shared_ptr<DrawingPool>> pools_; // all, the one being filled last; nearly always one
    std::shared_ptr<DrawingPool> pool_;
    std::size_t line_ = 0;
    bool pending_ = false;                // the pool's last record waits for its path line
    std::uint32_t number_ = 0;            // its number
    RyvPrmFileDetails* placed_ = nullptr; // its place in the tree, once a marker gave it one
    bool hasAttributes_ = false;          // more than markers of empty subfolders, which belong to no drawing
    bool firstDescription_ = false;
    bool secondDescription_ = false;
    CStringView lastMarker_; // neighbours mostly lie in one subfolder
    RyvPrmSubfolder* lastSubfolder_ = nullptr;
    std::unordered_set<CString> seen_; // upper-cased paths, kept when somebody wants to hear of duplicates
};

} // namespace ryv
