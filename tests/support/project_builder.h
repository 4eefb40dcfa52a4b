// Short ways to make projects and to show their trees.
#pragma once

#include "model/project_data.h"
#include "model/tree_walk.h"
#include "tests/support/text.h"

#include <memory>

namespace ryv::test {

inline std::unique_ptr<RyvPrmFileDetails> drawing(CStringView name) {
    return std::make_unique<RyvPrmFileDetails>(name);
}

/// The further descriptions as a list of their own, to compare and to show.
inline CStringList linesOf(const RyvPrmFileDetails& details) {
    CStringList lines;
    for (const CStringView line : details.getDescriptions())
        lines.emplace_back(line);
    return lines;
}

/// A drawing in which no field has the value of a new record.
inline RyvPrmFileDetails fullDrawing(CStringView name) {
    RyvPrmFileDetails details(name);
    details.setFileId(7);
    details.setDescription1(u"one");
    details.setDescription2(u"two");
    details.setDescriptions({u"three", u"four"});
    details.setReferenceOnly(true);
    return details;
}

/// Adds a new drawing to the project and returns it.
inline RyvPrmFileDetails* add(RyvPrmProjectData& project, CStringView name, const CString& trace = {}) {
    auto item = drawing(name);
    RyvPrmFileDetails* const placed = item.get();
    return project.addFile(std::move(item), &trace) ? placed : nullptr;
}

inline RyvPrmSubfolder* addSubfolder(RyvPrmProjectData& project, CStringView trace) {
    RyvPrmSubfolder* subfolder = nullptr;
    project.getSubfolderByTrace(trace, subfolder, true, false);
    return subfolder;
}

/// The items as "a.dwg B{c.dwg D{}}"; an item of neither kind is "?". For small trees.
inline std::string treeText(const RyvPrmItems& items) {
    std::string text;
    for (const auto& item : items) {
        text += text.empty() ? "" : " ";
        if (const RyvPrmFileDetails* const details = asFileDetails(item.get()))
            text += toUtf8(details->getFileName());
        else if (const RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
            text += toUtf8(subfolder->getName()) + "{" + treeText(subfolder->getItems()) + "}";
        else
            text += "?";
    }
    return text;
}
inline std::string treeText(const RyvPrmProjectData& project) {
    return treeText(project.getProjFileDetails());
}

/// The file names of all drawings, depth first.
inline std::vector<CString> drawingNames(const RyvPrmProjectData& project) {
    CArray<RyvPrmFileDetails*> drawings;
    project.generateFlatFileDetailsArray(drawings);
    std::vector<CString> names;
    for (const RyvPrmFileDetails* const details : drawings)
        names.emplace_back(details->getFileName());
    return names;
}

} // namespace ryv::test
