// The raw content of a project file: its text, and its lines as slices of it, sorted into sections.
#pragma once

#include "base/encoding.h"
#include "base/export.h"
#include "base/strings.h"
#include "base/text_slice.h"
#include "siblings/byte_buffer.h"
#include "siblings/project_findings.h"

#include <map>
#include <memory>
#include <vector>

namespace ryv {

class RyvPmMiscProjSettings;

/// Decodes the bytes once, as a whole; the lines are slices of that text, which whoever reads may share.
/// Lines end with LF or CR LF; lines that are empty or all blanks are no lines.
class RYV_EXPORT ProjectSections {
public:
    /// Takes the bytes of a file over and sorts its lines. Content of 2 GiB and more is refused with false.
    bool load(ByteBuffer bytes, ProjectReporter* reporter);

    /// Forgets everything but the encoding.
    void clear();

    TextEncoding encoding() const noexcept { return encoding_; }

    /// The largest "*[n]" that is accepted: enough for any project made by people, or one number for each so
    /// many units of the file when that is larger, so that a short file cannot ask for a long list.
    static constexpr std::size_t descriptionFloor = 65536;
    static constexpr std::size_t unitsPerDescription = 8;

    /// The description lines; index 0 is "*[1]", missing numbers are empty.
    CStringList descriptionLines() const;

    /// The largest "?[n]"; a line with a larger number is dropped.
    static constexpr int largestSetting = 76;

    /// The "?[n]" values by their index.
    std::map<int, CString> settings() const;

    /// Fills the values of the "+[n]" lines in.
    void initMiscProjSettings(RyvPmMiscProjSettings& misc) const;

    /// The drawing-section lines in file order, each with its prefix, without its line end.
    std::size_t drawingLineCount() const noexcept { return drawingLines_.size(); }
    CStringView drawingLine(std::size_t index) const noexcept { return drawingLines_[index].of(*text_); }

    /// The text that the drawing-section lines are views of.
    const std::shared_ptr<const CString>& text() const noexcept { return text_; }

    /// Line number in the file, from 1, of a drawing-section line. Fast when asked in ascending order.
    std::size_t lineNumberOf(std::size_t drawingLine) const noexcept;

    /// Line number in the file of a "?[n]" line that settings() has.
    std::size_t settingLine(int index) const noexcept;

private:
    struct Cursor {
        std::size_t offset = 0;
        std::size_t line = 1;
    };
    enum class Section { descriptions, misc, settings, drawings };

    void sortLines(ByteBuffer bytes, ProjectReporter* reporter);
    template <class FindLineFeed>
    void sortLines(ProjectReporter* reporter, const FindLineFeed& findLineFeed);
    void sortLine(TextSlice line, ProjectReporter* reporter);
    bool sortIndexed(Section section, TextSlice line, ProjectReporter* reporter);
    TextSlice* slotFor(Section section, long long index);
    void checkText(TextSlice line, ProjectReporter& reporter) const;
    CStringView view(TextSlice slice) const noexcept { return slice.of(*text_); }
    std::size_t lineAt(std::size_t offset) const noexcept;

    TextEncoding encoding_ = TextEncoding::utf8;
    std::shared_ptr<const CString> text_ = std::make_shared<const CString>();
    Section furthest_ = Section::descriptions;
    std::vector<TextSlice> descriptions_; // by number - 1; start 0 where there is none
    std::map<int, TextSlice> misc_;
    std::map<int, TextSlice> settings_;
    std::vector<TextSlice> drawingLines_;
    mutable Cursor cursor_; // where the last line number was counted to
};

} // namespace ryv
