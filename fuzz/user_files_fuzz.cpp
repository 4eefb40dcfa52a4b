// The small files that other programs and people may have written: the list of last projects, the registry
// hive and lock records. Whatever they hold is read, and what is written of it reads back as the same.
#include "base/encoding.h"
#include "embedded/registry/hive_text.h"
#include "fuzz/fuzz_input.h"
#include "manager/last_project_lines.h"
#include "siblings/lock_record.h"

#include <algorithm>

namespace {

using fuzz::require;

void readList(std::string_view bytes) {
    std::vector<ryv::LastProject> projects;
    ryv::readLastProjectLines(bytes, projects);
    require(projects.size() <= 30);
    std::erase_if(projects,
        [](const ryv::LastProject& each) { return each.id.empty() || !ryv::fitsInLastProjectLine(each.id); });
    std::vector<ryv::LastProject> again;
    require(ryv::readLastProjectLines(ryv::toLastProjectLines(projects), again));
    require(std::equal(projects.begin(), projects.end(), again.begin(), again.end(),
        [](const auto& a, const auto& b) { return a.id == b.id && a.code == b.code; }));
}

void readHive(std::string_view bytes) {
    const auto hive = drafta::parseHive(bytes);
    if (!hive)
        return;
    const std::string printed = drafta::printHive(*hive);
    const auto again = drafta::parseHive(printed);
    require(again && drafta::printHive(*again) == printed);
}

void readRecord(std::string_view bytes) {
    const ryv::CString record = ryv::decodeUtf8(bytes);
    const auto parts = ryv::parseLockRecord(record);
    require(ryv::haveSameHolder(record, record) == parts.has_value());
    require(!parts || parts->holder().size() + parts->time.size() <= record.size() + 2);
}

} // namespace

/// The first byte says what the rest is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return fuzz::runMarked(data, size, {{'L', readList}, {'H', readHive}, {'R', readRecord}});
}
