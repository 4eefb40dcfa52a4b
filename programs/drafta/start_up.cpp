#include "programs/drafta/start_up.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/text.h"
#include "siblings/file_content.h"

#include <algorithm>
#include <filesystem>

namespace drafta {

namespace {

std::string productFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path().parent_path() / "share" / "drafta").string();
}

/// Where the build puts the module, and where it is installed.
std::string ownModule() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path().parent_path() / "lib" / "RyvPageMan.so").string();
}

bool takeAnswers(Host& host, const std::string& file, std::string& problem) {
    ryv::ByteBuffer bytes;
    ryv::Fingerprint fingerprint;
    ryv::Platform& ports = host.platform();
    const ryv::FileStatus status =
        ryv::readWholeFile(*ports.os.files, ports.os.paths->fromNative(file), bytes, fingerprint);
    if (!status.ok()) {
        problem = file + ": " + describe(status.error);
        return false;
    }
    Answers answers;
    ryv::CString reason;
    ryv::TextEncoding encoding{};
    if (!Answers::parse(ryv::decodeDetecting(bytes.view(), encoding), answers, reason)) {
        problem = file + ": " + ryv::toUtf8(reason);
        return false;
    }
    host.userInterface().setAnswers(std::move(answers));
    return true;
}

bool isProject(ryv::CStringView path) {
    return path.size() >= 4 && ryv::equalNoCase(path.substr(path.size() - 4), u".kqp");
}

/// The projects among the files of the command line, or the drawings.
bool openFiles(Host& host, const Options& options, bool projects) {
    bool opened = true;
    for (const std::string& file : options.files) {
        const ryv::CString path = host.platform().os.paths->fromNative(file);
        if (isProject(path) == projects)
            opened =
                !host.hasQuit() && (projects ? host.openProject(path) : host.openDocument(path)) && opened;
    }
    return opened;
}

} // namespace

HostOptions hostOptionsOf(const Options& options) {
    HostOptions made;
    made.profileFolder = options.profileFolder;
    made.productFolder = productFolder();
    made.logsEvents = options.logsEvents;
    made.screen = options.screen;
    made.isInBackground = options.isInBackground;
    return made;
}

/// Without it palettes float where the module puts them; whatever goes wrong here is no reason to stop.
void giveFirstLayout(const Options& options) {
    const std::filesystem::path own = std::filesystem::path(options.profileFolder) / "workspace.xml";
    std::error_code ignored;
    if (std::filesystem::exists(own, ignored))
        return;
    std::filesystem::create_directories(own.parent_path(), ignored);
    std::filesystem::copy_file(std::filesystem::path(productFolder()) / "workspace.xml", own, ignored);
}

bool prepare(Host& host, const Options& options, std::string& problem) {
    for (const auto& [letter, folder] : options.drives)
        host.mapper().mapDrive(static_cast<char16_t>(letter), folder);
    return options.answersFile.empty() || takeAnswers(host, options.answersFile, problem);
}

bool loadModules(Host& host, const Options& options, std::string& problem) {
    if (!options.loadsModules)
        return true;
    const std::vector<std::string> files =
        options.modules.empty() ? std::vector<std::string>{ownModule()} : options.modules;
    return std::all_of(
        files.begin(), files.end(), [&](const std::string& file) { return host.loadModule(file, problem); });
}

bool openFirst(Host& host, const Options& options) {
    bool opened = true;
    host.whenReady([&] { opened = openFiles(host, options, true); });
    host.newDocument();
    host.runPending();
    return openFiles(host, options, false) && opened;
}

} // namespace drafta
