#include "embedded/palettes/workspace.h"

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "embedded/palettes/workspace_xml.h"
#include "siblings/atomic_file.h"

#include <algorithm>

namespace drafta {

namespace {

constexpr ryv::CStringView layoutName = u"PALETTESET";
constexpr ryv::CStringView idName = u"TOOLID";

// Each further attempt means that another process has saved meanwhile.
constexpr int saveAttempts = 20;

constexpr int mostCopies = 99;

ryv::CString toolIdOf(const ryv::WorkspaceNode& layout) {
    ryv::CString id;
    layout.string(idName, id);
    return id;
}

Workspace::Layout findLayout(const std::vector<Workspace::Layout>& layouts, ryv::CStringView toolId) {
    const auto hit = std::find_if(layouts.begin(), layouts.end(),
        [toolId](const auto& each) { return ryv::equalNoCase(toolIdOf(*each), toolId); });
    return toolId.empty() || hit == layouts.end() ? nullptr : *hit;
}

/// `known` with the newer layouts in their places, and those of new tool IDs behind the others.
std::vector<Workspace::Layout> merged(
    const std::vector<Workspace::Layout>& known, const std::vector<Workspace::Layout>& newer) {
    std::vector<Workspace::Layout> all;
    for (const Workspace::Layout& layout : known) {
        const Workspace::Layout update = findLayout(newer, toolIdOf(*layout));
        all.push_back(update ? update : layout);
    }
    for (const Workspace::Layout& layout : newer)
        if (!findLayout(known, toolIdOf(*layout)))
            all.push_back(layout);
    return all;
}

} // namespace

std::shared_ptr<ryv::WorkspaceNode> Workspace::newLayout(ryv::CStringView toolId) {
    auto layout = std::make_shared<ryv::WorkspaceNode>(ryv::CString(layoutName));
    layout->setString(idName, toolId);
    return layout;
}

Workspace::Layout Workspace::find(ryv::CStringView toolId) {
    if (state_ == State::unread)
        load();
    return findLayout(layouts_, toolId);
}

ryv::CString Workspace::read() {
    layouts_.clear();
    state_ = State::unreadable;
    const ryv::FileStatus status = ryv::readWholeFile(files_, path_, bytes_, fingerprint_);
    if (status.error == ryv::FileError::missing) {
        state_ = State::missing;
        return {};
    }
    if (!status.ok())
        return ryv::fromAscii(describe(status.error));
    ryv::CString problem;
    state_ = parseWorkspace(bytes_.view(), layouts_, problem) ? State::good : State::damaged;
    return problem;
}

bool Workspace::load() {
    const ryv::CString problem = read();
    if (!problem.empty())
        warn_(path_ + u": " + problem + u"; palettes stand where they stand by default");
    return problem.empty();
}

/// Nobody's file is lost because this version does not understand it. A copy of what was read, and not the
/// file itself, which another process may have replaced by a good one meanwhile.
ryv::FileStatus Workspace::keepCopy(ryv::CString& copy) {
    for (int number = 1; number <= mostCopies; ++number) {
        copy = path_ + u".bad" + (number == 1 ? ryv::CString() : ryv::toText(number));
        ryv::Fingerprint there;
        if (ryv::fingerprintOf(files_, copy, there).ok() && there == fingerprint_)
            return {}; // kept by an attempt before this one
        const ryv::SaveResult kept = ryv::saveAtomically(files_, {copy, bytes_.view(), ryv::Fingerprint()});
        ryv::FileInformation other;
        if (kept.replaced)
            return {};
        if (files_.information(copy, other).error == ryv::FileError::missing)
            return kept.status; // it was not that the name is taken
    }
    return {ryv::FileError::exists, 0};
}

ryv::FileStatus Workspace::replace(const std::vector<Layout>& layouts, const ryv::CString& problem) {
    ryv::CString copy;
    if (const ryv::FileStatus status = keepCopy(copy); !status.ok())
        return status;
    const ryv::FileStatus status = write(layouts);
    if (status.ok())
        warn_(path_ + u": " + problem + u"; what it held is kept as " +
              ryv::CString(ryv::paths::findFileName(copy)));
    return status;
}

ryv::FileStatus Workspace::write(const std::vector<Layout>& layouts) {
    const std::vector<Layout> all = merged(layouts_, layouts);
    const std::string text = printWorkspace(all);
    std::vector<Layout> again;
    if (ryv::CString problem; !parseWorkspace(text, again, problem))
        return {ryv::FileError::tooLarge, 0}; // more than is read back
    if (state_ == State::good && text == bytes_.view())
        return {};
    const ryv::SaveResult result = ryv::saveAtomically(files_, {path_, text, fingerprint_});
    if (!result.replaced)
        return result.status;
    layouts_ = all;
    state_ = State::unread; // what others write later is seen when it is asked for
    return {};
}

bool Workspace::save(std::vector<Layout> layouts) {
    std::erase_if(layouts, [](const Layout& layout) { return toolIdOf(*layout).empty(); });
    if (layouts.empty())
        return true;
    ryv::FileStatus status;
    for (int attempt = 0; attempt < saveAttempts; ++attempt) {
        const ryv::CString problem = read();
        if (state_ == State::unreadable) {
            warn_(path_ + u": " + problem + u"; nothing is saved");
            return false;
        }
        status = state_ == State::damaged ? replace(layouts, problem) : write(layouts);
        if (status.error != ryv::FileError::changedOutside)
            break;
    }
    return status.ok() || fail(status);
}

bool Workspace::fail(const ryv::FileStatus& status) {
    warn_(path_ + u": " + ryv::fromAscii(describe(status.error)));
    return false;
}

} // namespace drafta
