// Re-reads that come to nothing, which no event tells of.
#pragma once

#include "manager/project_manager.h"
#include "programs/kqp/terminal/console.h"

#include <string>

namespace kqp {

/// Tries to read a project file. True, with a line on standard error, when it cannot be read.
bool saysWhyUnreadable(const std::string& file, Console& console);

/// Says on standard error that the watched file changed and could not be read again. A file that can be read
/// a moment later, such as one that is being written in place, is not worth a word.
class RereadFailures {
public:
    /// `file` as the user named it. All outlive the object.
    RereadFailures(ryv::RyvPrmProjectManager& manager, const std::string& file, Console& console);
    RereadFailures(const RereadFailures&) = delete;
    RereadFailures& operator=(const RereadFailures&) = delete;
    ~RereadFailures();

private:
    void begun(const ryv::CString& project);
    void succeeded(const ryv::CString& project);
    void look();

    ryv::RyvPrmProjectManager& manager_;
    const std::string& file_;
    Console& console_;
    bool underWay_ = false;
};

} // namespace kqp
