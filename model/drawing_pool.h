// Where the content of drawings lies: the records of one read share the file's text and a few blocks, so that
// a drawing of a large project costs no strings of its own.
#pragma once

#include "base/export.h"
#include "base/strings.h"
#include "base/text_slice.h"

#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace ryv {

/// The further descriptions of a drawing, as views of a text that outlives the record's next change.
class RYV_EXPORT DescriptionLines {
public:
    DescriptionLines() = default;
    DescriptionLines(CStringView text, const TextSlice* first, std::size_t count)
        : text_(text), first_(first), count_(count) {}

    class Iterator {
    public:
        using difference_type = std::ptrdiff_t;
        using value_type = CStringView;
        using iterator_category = std::input_iterator_tag;
        using pointer = void;
        using reference = CStringView;

        Iterator(CStringView text, const TextSlice* at) : text_(text), at_(at) {}
        CStringView operator*() const noexcept { return at_->of(text_); }
        Iterator& operator++() noexcept {
            ++at_;
            return *this;
        }
        Iterator operator++(int) noexcept { return {text_, at_++}; }
        bool operator==(const Iterator& other) const noexcept { return at_ == other.at_; }

    private:
        CStringView text_;
        const TextSlice* at_;
    };

    std::size_t size() const noexcept { return count_; }
    bool empty() const noexcept { return count_ == 0; }
    /// An index outside the list throws std::invalid_argument.
    CStringView operator[](std::size_t index) const;
    Iterator begin() const noexcept { return {text_, first_}; }
    Iterator end() const noexcept { return {text_, first_ + count_}; }

    bool operator==(const DescriptionLines& other) const noexcept;

private:
    CStringView text_;
    const TextSlice* first_ = nullptr;
    std::size_t count_ = 0;
};

/// Records by number. Filled by one writer, which adds a record and sets its fields before the next one is
/// added; unchangeable from then on. What the fields say is described at RyvPrmFileDetails.
class RYV_EXPORT DrawingPool {
public:
    struct Record {
        TextSlice fileName; // in names_; the others in text_
        TextSlice description1;
        TextSlice description2;
        std::uint32_t firstLine = 0;
        std::uint32_t lineCount = 0;
        std::int32_t fileId = 0;
        bool referenceOnly = false;
    };

    /// `text` is what descriptions are views of.
    explicit DrawingPool(std::shared_ptr<const CString> text) : text_(std::move(text)) {}

    /// Adds an empty record and returns its number.
    std::uint32_t add();
    std::size_t size() const noexcept { return records_.size(); }
    /// False when the names might not stay below 4 Gi units with one more; a name has less than 2 Gi.
    bool hasRoom() const noexcept { return names_.size() < 0x80000000u; }
    Record& last() noexcept { return records_.back(); }
    Record& record(std::uint32_t number) noexcept { return records_[number]; }

    /// Set fields of the last record. Descriptions have to be views of the pool's text; a name is copied.
    void setFileName(CStringView name);
    void setDescription1(CStringView text) { last().description1 = sliceOf(text); }
    void setDescription2(CStringView text) { last().description2 = sliceOf(text); }
    void addDescription(CStringView text) {
        lines_.push_back(sliceOf(text));
        ++last().lineCount;
    }

    CStringView fileName(std::uint32_t number) const noexcept { return records_[number].fileName.of(names_); }
    CStringView description1(std::uint32_t number) const noexcept {
        return records_[number].description1.of(*text_);
    }
    CStringView description2(std::uint32_t number) const noexcept {
        return records_[number].description2.of(*text_);
    }
    DescriptionLines descriptions(std::uint32_t number) const noexcept;
    std::int32_t fileId(std::uint32_t number) const noexcept { return records_[number].fileId; }
    bool isReferenceOnly(std::uint32_t number) const noexcept { return records_[number].referenceOnly; }

    /// Room for that many lines and records without growing.
    void reserve(std::size_t lines, std::size_t records);

    /// Gives back what was reserved for growing.
    void trim();

private:
    TextSlice sliceOf(CStringView text) const noexcept {
        return {
            static_cast<std::uint32_t>(text.data() - text_->data()), static_cast<std::uint32_t>(text.size())};
    }

    std::shared_ptr<const CString> text_;
    CString names_;
    std::vector<TextSlice> lines_;
    std::vector<Record> records_;
};

} // namespace ryv
