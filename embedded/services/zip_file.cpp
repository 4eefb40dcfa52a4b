#include "embedded/services/zip_file.h"

#include "base/encoding.h"

#include <zip.h>

#include <filesystem>
#include <memory>

namespace drafta {

namespace {

struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};

ryv::CString text(std::string_view bytes) {
    return ryv::nameFromBytes(bytes);
}

bool leadsOut(const std::string& name) {
    return name.empty() || name.front() == '/' || name == ".." || name.starts_with("../") ||
           name.find("/../") != std::string::npos || name.ends_with("/..");
}

bool addEntry(zip_t* archive, const std::string& file, const std::string& name, ryv::CString& problem) {
    if (leadsOut(name)) {
        problem = text(file) + u": \"" + text(name) + u"\" is no name for an archive";
        return false;
    }
    zip_source_t* const source = zip_source_file(archive, file.c_str(), 0, -1);
    if (source && zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8) >= 0)
        return true;
    problem = text(file) + u": " + text(zip_strerror(archive));
    if (source)
        zip_source_free(source);
    return false;
}

} // namespace

bool writeZip(const std::string& target, const std::vector<ZipEntry>& entries, ryv::CString& problem) {
    if (entries.empty()) {
        problem = text(target) + u": there is nothing to put into the archive";
        return false;
    }
    for (const auto& entry : entries) {
        std::error_code isNoFile;
        if (std::filesystem::equivalent(entry.first, target, isNoFile)) {
            problem = text(target) + u": the archive cannot hold itself";
            return false;
        }
    }
    int code = 0;
    std::unique_ptr<zip_t, Discard> archive(zip_open(target.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code));
    if (!archive) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        problem = text(target) + u": " + text(zip_error_strerror(&error));
        zip_error_fini(&error);
        return false;
    }
    for (const auto& [file, name] : entries)
        if (!addEntry(archive.get(), file, ryv::nameToBytes(name), problem))
            return false;
    if (zip_close(archive.get()) != 0) {
        problem = text(target) + u": " + text(zip_strerror(archive.get()));
        return false;
    }
    // Closed, so there is nothing left to discard.
    static_cast<void>(archive.release());
    return true;
}

} // namespace drafta
