// The 77 settings that every schematic drawing carries, and that a project keeps as defaults for its new
// drawings.
#pragma once

#include "base/export.h"
#include "base/strings.h"
#include "siblings/misc_proj_settings.h"

#include <array>
#include <optional>

namespace ryv {

class RyvPrmProject;

/// Texts addressed by an index from 0 to 76. The record does not interpret them. An absent value and a
/// present empty one are different states.
class RYV_EXPORT RyvCfgDrawingSettings {
public:
    enum class Status {
        present = 1, ///< done, or the value is there
        absent = 2,  ///< there is no value
        badIndex = 3 ///< the index is above 76 (setValue only)
    };

    static constexpr std::size_t count = 77;

    RyvCfgDrawingSettings() = default;
    RyvCfgDrawingSettings(const RyvCfgDrawingSettings& other) = default;

    /// Deliberately a merge: values that `other` has are copied, a value absent there stays as it is here. To
    /// reset a record, call reInitializeData().
    RyvCfgDrawingSettings& operator=(const RyvCfgDrawingSettings& other);

    /// Exchanges all values.
    void swap(RyvCfgDrawingSettings& other) noexcept { values_.swap(other.values_); }
    friend void swap(RyvCfgDrawingSettings& a, RyvCfgDrawingSettings& b) noexcept { a.swap(b); }

    /// Makes every value absent.
    void reInitializeData();

    /// Copies a present value. An index outside 0..76 gives `present` and leaves `value` alone: callers loop
    /// over the valid indices only, and other components rely on the answer.
    Status getValue(int index, CString& value) const;

    /// The value itself, or null when it is absent or the index is outside 0..76.
    const CString* find(int index) const noexcept;

    /// Stores a value, or makes it absent when `value` is null. Above 76 gives `badIndex`; a negative index
    /// gives `present` and does nothing.
    Status setValue(int index, const CString* value);

    /// The largest index: 76.
    static constexpr int getMaxBracketIndex() noexcept { return static_cast<int>(count) - 1; }

    /// The attribute name that an index has in a drawing's settings block; false outside 0..76.
    static bool getKQ_MTagForIndex(int index, CString& tag);

    /// The second name that index 13 ("SHEET") answers to, "SHEET_"; false for every other index.
    static bool getKQ_MAltTagForIndex(int index, CString& tag);

    /// The index of an attribute name, case ignored; -1 for null or an unknown name. "SHEET_" is not known
    /// here.
    static int getIndexForKQ_MTag(const char16_t* tag);
    static int getIndexForKQ_MTag(const CString& tag);

    /// The identifier under which the host's message files describe a setting ("CFG037"); false when it has
    /// none.
    static bool getMessageKeyForIndex(int index, CString& key);

    /// True for the settings that describe one drawing: 13, 46, 51, 52 and 53.
    static bool isDrawingSpecific(int index) noexcept;

    /// False for the sheet number (13) and the sheet drawing name (46), which never stand in a project file.
    static bool isKeptInProjects(int index) noexcept { return index != 13 && index != 46; }

    /// Same values present, and equal when case is ignored.
    bool operator==(const RyvCfgDrawingSettings& other) const;

    /// Like operator== without the drawing-specific settings; of the wire layers (index 26) it is enough that
    /// every layer of `other` occurs here.
    bool CompareNonDrawingSpecificValues(const RyvCfgDrawingSettings& other) const;

    /// Copies what `other` has, but for the drawing-specific settings; wire layers are merged when both have
    /// some. `clearAbsent`: a value absent in `other` becomes absent here.
    void CopyNonDrawingSpecificValues(const RyvCfgDrawingSettings& other, bool clearAbsent);

    /// Fixed defaults, then those that depend on the project's miscellaneous settings.
    void fillWithDefaults(const RyvPmMiscProjSettings& misc);

    /// Fixed defaults, then those that depend on the miscellaneous settings of `project`, then its default
    /// settings, as far as it has them. `useActiveProject`: null stands for the active project. Without a
    /// project, those for a drawing outside of projects.
    void fillWithDefaults(const RyvPrmProject* project, bool useActiveProject);

protected:
    void fillHCDefaults();
    void fillDependantDefaultsUsingDependancy(const RyvPmMiscProjSettings& misc);
    void fillDependantDefaultsUsingHCD();

    /// True when every item of `first` equals some item of `second`, case ignored; an empty `first` is
    /// contained.
    static bool firstListInSecondList(CStringView first, CStringView second);

    /// Appends to `second` the items of `first` that it lacks, case ignored, in `first`'s order. True.
    static bool mergeWireLays(CStringView first, CString& second);

    void freeAndSetOnePtrNULL(int index);
    void initializeData();

private:
    void set(int index, CStringView value);
    void fillCommonTail();

    std::array<std::optional<CString>, count> values_;
};

} // namespace ryv
