// Bytes to text and back. Nothing is altered silently: what could not be decoded or encoded is counted and
// placed.
#pragma once

#include "base/strings.h"

#include <string>
#include <string_view>

namespace ryv {

enum class TextEncoding { utf8, utf8WithMark, utf16LittleEndian, utf16BigEndian, windows1252 };

/// The name that programs print: "utf-8", "utf-8-bom", "utf-16le", "utf-16be", "windows-1252".
const char* encodingName(TextEncoding encoding) noexcept;

/// What a conversion met that has no exact counterpart.
struct CodecReport {
    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t problems = 0; ///< how many undecodable bytes, lone surrogates and unknown units were met
    std::size_t first = none; ///< offset of the first one, in bytes (decoding) or units (encoding)

    void add(std::size_t offset) {
        if (problems++ == 0)
            first = offset;
    }
};

/// The encoding of a file's bytes: the one that its byte-order mark names, else UTF-8 when the bytes are
/// valid UTF-8, else Windows-1252. Empty content is UTF-8.
TextEncoding detectEncoding(std::string_view bytes) noexcept;

/// Bytes of the byte-order mark of an encoding: 3 for UTF-8 with mark, 2 for UTF-16, 0 otherwise.
std::size_t markLength(TextEncoding encoding) noexcept;
std::string_view mark(TextEncoding encoding) noexcept;

/// True when the bytes are valid UTF-8 (shortest forms, no surrogates, at most U+10FFFF).
bool isValidUtf8(std::string_view bytes) noexcept;

/// True when a surrogate stands on its own: text that no encoding but UTF-16 holds exactly.
bool hasLoneSurrogate(CStringView text) noexcept;

/// UTF-8 to text. A byte that belongs to no valid sequence becomes the lone surrogate U+DC00 + byte and is
/// reported; a surrogate that stands encoded on its own as three bytes becomes that surrogate and is reported
/// too, unless it would form a pair with its neighbour: then its three bytes belong to no valid sequence. So
/// every input has a text whose surrogates are pairs only where the bytes were valid, and decoding what
/// encodeUtf8 made of a text gives back that text, whatever it holds.
CString decodeUtf8(std::string_view bytes, CodecReport* report = nullptr);

/// Windows-1252 to text. The five undefined bytes (81, 8D, 8F, 90, 9D) become the control characters of the
/// same number and are reported; they encode back to themselves.
CString decodeWindows1252(std::string_view bytes, CodecReport* report = nullptr);

/// UTF-16 to text. Lone surrogates are kept and reported; an odd byte at the end is left out and reported.
CString decodeUtf16(std::string_view bytes, bool bigEndian, CodecReport* report = nullptr);

/// Decodes without looking for a mark.
CString decode(std::string_view bytes, TextEncoding encoding, CodecReport* report = nullptr);

/// Detects the encoding of a file's bytes, leaves the mark out and decodes the rest; cheaper than the two
/// steps.
CString decodeDetecting(std::string_view bytes, TextEncoding& encoding);

/// Text to UTF-8, appended to `out`. A lone surrogate is written as three bytes, which readers that insist on
/// valid UTF-8 refuse, and is reported.
void encodeUtf8(CStringView text, std::string& out, CodecReport* report = nullptr);

/// Text to Windows-1252, appended to `out`. A unit that the encoding lacks becomes "?" and is reported.
void encodeWindows1252(CStringView text, std::string& out, CodecReport* report = nullptr);

/// Text to UTF-16, appended to `out`; lone surrogates are written as they stand.
void encodeUtf16(CStringView text, bool bigEndian, std::string& out);

/// Encodes without writing a mark.
void encode(CStringView text, TextEncoding encoding, std::string& out, CodecReport* report = nullptr);

std::string toUtf8(CStringView text);

/// Names of the native file system, which are bytes: like decodeUtf8, but only valid sequences and single
/// escaped bytes occur, so that nameToBytes(nameFromBytes(b)) is b for any bytes.
CString nameFromBytes(std::string_view bytes);
std::string nameToBytes(CStringView name);

} // namespace ryv
