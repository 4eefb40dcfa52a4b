// The lines that were typed, kept from one session to the next in a file that several sessions share.
#pragma once

#include <histedit.h>

#include <string>
#include <vector>

namespace drafta {

class HistoryFile {
public:
    /// Begins with what earlier sessions left in the file. A file that cannot be read is no history.
    explicit HistoryFile(std::string file);
    HistoryFile(const HistoryFile&) = delete;
    HistoryFile& operator=(const HistoryFile&) = delete;

    /// Adds this session's lines behind those that others have saved meanwhile. A history that cannot be kept
    /// is no reason to complain.
    ~HistoryFile();

    void add(const std::string& line);

    /// For the line editor.
    History* lines() noexcept { return history_; }

private:
    void save();

    std::string file_;
    History* history_;
    std::vector<std::string> added_;
};

} // namespace drafta
