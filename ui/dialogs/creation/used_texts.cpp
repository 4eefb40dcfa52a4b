#include "ui/dialogs/creation/used_texts.h"

#include "model/project_data.h"

#include <unordered_set>

namespace ryv {

namespace {

/// The texts seen are the project's own, which stays as it is meanwhile.
class Distinct {
public:
    explicit Distinct(Choices& choices) : choices_(choices) {}

    void add(CStringView text) {
        if (!text.empty() && seen_.insert(text).second)
            choices_.push_back({CString(text)});
    }

private:
    Choices& choices_;
    std::unordered_set<CStringView> seen_;
};

} // namespace

UsedTexts usedTextsOf(const RyvPrmProjectData& project) {
    UsedTexts used;
    Distinct descriptions(used.descriptions);
    Distinct sections(used.sections);
    Distinct subSections(used.subSections);
    CArray<RyvPrmFileDetails*> drawings;
    project.generateFlatFileDetailsArray(drawings);
    for (const RyvPrmFileDetails* const drawing : drawings) {
        sections.add(drawing->getDescription1());
        subSections.add(drawing->getDescription2());
        for (const CStringView line : drawing->getDescriptions())
            descriptions.add(line);
    }
    used.drawings = drawings.size();
    return used;
}

} // namespace ryv
