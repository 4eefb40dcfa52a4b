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

void ProjectLineWriter::write(CStringView prefix, CStringView text, CStringView suffix) {
    if (lines_ > 0)
        pending_ += u'\n';
    ++lines_;
    starts_.push_back(pending_.size());
    pending_.append(prefix).append(text).append(suffix);
    if (pending_.size() >= chunk)
        encodePending();
}

/// Encodes many lines at once and then looks whether there are as many line feeds as between the lines; only
/// when there are more are the lines looked at one by one.
void ProjectLineWriter::encodePending() {
    const std::size_t start = bytes_.size();
    encodeUtf8(pending_, bytes_);
    const std::string_view encoded = std::string_view(bytes_).substr(start);
    const std::size_t expected = starts_.size() - (!starts_.empty() && starts_[0] == 0 ? 1 : 0);
    if (encoded.find('\r') != std::string_view::npos || lineFeeds(encoded) != expected) {
        mendPending();
        bytes_.resize(start);
        encodeUtf8(pending_, bytes_);
    }
    pending_.clear();
    starts_.clear();
}

void ProjectLineWriter::mendPending() {
    for (std::size_t i = 0; i < starts_.size(); ++i) {
        const std::size_t end = i + 1 < starts_.size() ? starts_[i + 1] - 1 : pending_.size();
        const CStringView line = CStringView(pending_).substr(starts_[i], end - starts_[i]);
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
