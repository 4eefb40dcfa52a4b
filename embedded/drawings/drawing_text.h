// The texts of a drawing: bytes in the encoding that its release and its code page say, with escapes for what
// that encoding lacks.
#pragma once

#include "base/strings.h"

#include <memory>
#include <string>
#include <string_view>

namespace drafta {

/// Decodes and encodes values. Text survives both ways: characters that the code page lacks are written as
/// the escape `\U+XXXX`, a unit each, and so is the "\" of a text that looks like an escape; bytes that stand
/// for no character become lone surrogates (U+DC00 + byte) and such a surrogate the byte again. The escapes
/// `\M+nXXXX` (a character in one of five Asian code pages) are read too. All else that values may hold,
/// "%%c" and "\P" for example, stays as it is.
class DrawingText {
public:
    /// UTF-8 when `isUtf8` or when the code page says so, else the code page by its name in drawings
    /// ("ANSI_1252", without regard to case); an unknown or empty name is ANSI_1252.
    DrawingText(bool isUtf8, std::string_view codePage);
    DrawingText(DrawingText&&) noexcept;
    DrawingText& operator=(DrawingText&&) noexcept;
    ~DrawingText();

    ryv::CString decode(std::string_view value) const;

    /// The bytes of a value, appended. False, and nothing is appended, for text that no line can hold: line
    /// breaks and other control characters below U+0020, and U+007F.
    [[nodiscard]] bool encode(ryv::CStringView text, std::string& value) const;

private:
    class CodePage;
    const CodePage& page() const;
    ryv::CString decodeBytes(std::string_view bytes) const;
    std::string encodeUnits(ryv::CStringView text, bool keepsBytes) const;

    bool isUtf8_;
    std::string pageName_;
    mutable std::unique_ptr<CodePage> page_; // made when it is needed first: most drawings never do
};

} // namespace drafta
