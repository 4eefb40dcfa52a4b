// Collects the lines of a project file as UTF-8.
#pragma once

#include "base/strings.h"
#include "siblings/project_findings.h"

#include <string>
#include <vector>

namespace ryv {

/// Puts one line feed between two lines, none in front of the first, and one behind the last. A line can
/// never turn into two: a line break inside a text becomes a blank and is reported.
class ProjectLineWriter {
public:
    /// `reporter` may be null; it outlives the writer.
    explicit ProjectLineWriter(ProjectReporter* reporter) : reporter_(reporter) {}

    void write(CStringView line) { write({}, line); }
    /// Room for that many bytes, so that a large project is not copied while it grows.
    void reserve(std::size_t bytes) { bytes_.reserve(bytes); }

    /// A line made of three parts; prefix and suffix hold no line breaks.
    void write(CStringView prefix, CStringView text, CStringView suffix = {});

    /// Ends the last line and gives the whole content away.
    std::string finish();

private:
    char16_t* room(std::size_t units);
    CStringView pending() const noexcept { return {pending_.data(), used_}; }
    void encodePending();
    void mendPending();

    std::vector<char16_t> pending_; // lines that are not encoded yet, in the first `used_` units
    std::size_t used_ = 0;
    std::vector<std::size_t> starts_; // where each of them begins, behind its line feed
    std::string bytes_;
    std::size_t lines_ = 0; // all that were written
    ProjectReporter* reporter_;
};

} // namespace ryv
