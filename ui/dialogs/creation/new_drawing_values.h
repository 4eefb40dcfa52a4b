// What a new drawing is made of.
#pragma once

#include "base/strings.h"

#include <array>

namespace ryv {

/// The ten values that a new drawing has by name, and where it is made of what. Who fills them need not show
/// a dialog.
class NewDrawingValues {
public:
    enum Index {
        description1,
        description2,
        description3,
        projectCode,
        installationCode,
        locationCode,
        sheet,
        drawingNumber,
        section,
        subSection,
        count
    };

    /// The index of a name such as "Location Code", without regard to case; -1 for an unknown one.
    static int indexOf(CStringView name);

    /// False, with nothing changed, for an index that there is not.
    bool setValue(int index, CStringView value);
    bool getValue(int index, CString& value) const;

    const CString& operator[](Index index) const { return texts_[index]; }

    CString path;         ///< of the drawing file
    CString templateFile; ///< that it is copied from
    bool isReferenceOnly = false;
    bool showsProperties = false; ///< its properties are to be shown afterwards

private:
    std::array<CString, count> texts_;
};

} // namespace ryv
