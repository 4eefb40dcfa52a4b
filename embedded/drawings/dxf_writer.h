// New pairs in the manner of a drawing: its line ends, and its way to write group codes.
#pragma once

#include "embedded/drawings/dxf_pairs.h"

#include <string>

namespace drafta {

struct DxfStyle {
    bool returns = true; ///< lines end in CR LF
    bool padded = true;  ///< group codes are padded to three columns
};

/// The manner of the first pair.
DxfStyle styleOf(std::string_view bytes) noexcept;

/// The shortest text that reads as the same number, with a decimal point. The number is finite.
std::string realText(double number);

std::string handleText(std::uint64_t handle);

/// Collects pairs, and remembers whether a number among them was none that the format can hold.
class DxfWriter {
public:
    explicit DxfWriter(DxfStyle style) noexcept : style_(style) {}

    DxfWriter& pair(int code, std::string_view value);
    DxfWriter& integer(int code, int value);
    DxfWriter& real(int code, double value);
    DxfWriter& handle(int code, std::uint64_t value) { return pair(code, handleText(value)); }

    DxfWriter& append(const DxfWriter& other);

    /// False once real() was given a number that is not finite; the text is of no use then.
    bool isFinite() const noexcept { return isFinite_; }
    std::size_t size() const noexcept { return text_.size(); }
    const std::string& text() const noexcept { return text_; }

private:
    DxfStyle style_;
    std::string text_;
    bool isFinite_ = true;
};

} // namespace drafta
