#include "model/project_line_writer.h"

#include "base/encoding.h"

#include <algorithm>
#include <utility>

namespace ryv {

namespace {

constexpr std::size_t chunk = 32768; // units that are encoded at once

bool isLineBreak(char16_t unit) {
    return unit == u'\n' || unit == u'\r';
}

std::size_t lineFeeds(std::string_view bytes) noexcept {
    std::size_t count = 0;
    for (std::size_t at = bytes.find('\n'); at != std::string_view::npos; at = bytes.find('\n', at + 1))
        ++count;
    return count;
}

} // namespace

/// The place behind the pending lines, with room for so many units.
char16_t* ProjectLineWriter::room(std::size_t units) {
    if (used_ + units > pending_.size())
        pending_.resize(std::max(used_ + units, 2 * chunk));
    return pending_.data() + used_;
}

void ProjectLineWriter::write(CStringView prefix, CStringView text, CStringView suffix) {
    char16_t* at = room(1 + prefix.size() + text.size() + suffix.size());
    if (lines_++ > 0)
        *at++ = u'\n';
    starts_.push_back(static_cast<std::size_t>(at - pending_.data()));
    for (const char16_t unit : prefix) // short, so that a call would cost more
        *at++ = unit;
    at = std::copy(text.begin(), text.end(), at);
    for (const char16_t unit : suffix)
        *at++ = unit;
    used_ = static_cast<std::size_t>(at - pending_.data());
    if (used_ >= chunk)
        encodePending();
}

/// Encodes many lines at once and then looks whether there are as many line feeds as between the lines; only
/// when there are more are the lines looked at one by one.
void ProjectLineWriter::encodePending() {
    const std::size_t start = bytes_.size();
    encodeUtf8(pending(), bytes_);
    const std::string_view encoded = std::string_view(bytes_).substr(start);
    const std::size_t expected = starts_.size() - (!starts_.empty() && starts_[0] == 0 ? 1 : 0);
    if (encoded.find('\r') != std::string_view::npos || lineFeeds(encoded) != expected) {
        mendPending();
        bytes_.resize(start);
        encodeUtf8(pending(), bytes_);
    }
    used_ = 0;
    starts_.clear();
}

void ProjectLineWriter::mendPending() {
    for (std::size_t i = 0; i < starts_.size(); ++i) {
        const std::size_t end = i + 1 < starts_.size() ? starts_[i + 1] - 1 : used_;
        const CStringView line = pending().substr(starts_[i], end - starts_[i]);
        if (!std::any_of(line.begin(), line.end(), isLineBreak))
            continue;
        if (reporter_)
            reporter_->found(lines_ - starts_.size() + i + 1, ProjectFinding::lineBreakInText, line);
        const auto first = pending_.begin() + static_cast<std::ptrdiff_t>(starts_[i]);
        std::replace_if(first, first + static_cast<std::ptrdiff_t>(line.size()), isLineBreak, u' ');
    }
}

std::string ProjectLineWriter::finish() {
    encodePending();
    bytes_ += '\n';
    return std::exchange(bytes_, {});
}

} // namespace ryv
