#include "siblings/rypx_filer.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "siblings/atomic_file.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace ryv {

namespace {

constexpr CStringView header = u"RYPX 1";
constexpr std::int32_t largestId = std::numeric_limits<std::int32_t>::max();

struct Identity {
    bool known = false;
    CString a;
    CString b;
};

struct Drawing {
    std::int32_t id = 0;
    CString path; // as spelled, relative to the project where it can be
};

/// Keys are upper case, so that they compare without regard to case.
using Drawings = std::unordered_map<CString, Drawing>;

struct Content {
    Identity local;
    Identity linked;
    std::int32_t next = 1;
    Drawings drawings;
};

CString oneLine(CStringView text) {
    CString result(text);
    std::replace_if(
        result.begin(), result.end(),
        [](char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == u'\t'; }, u' ');
    return result;
}

bool readIdentity(CStringView value, Identity& identity) {
    const std::size_t tab = value.find(u'\t');
    if (tab == CStringView::npos)
        return false;
    identity = {true, CString(value.substr(0, tab)), CString(value.substr(tab + 1))};
    return true;
}

std::optional<std::int32_t> readId(CStringView text) {
    const auto number = parseInteger(text);
    if (!number || *number < 1 || *number > largestId)
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

bool readDrawing(CStringView value, Content& content) {
    const std::size_t tab = value.find(u'\t');
    const auto id = readId(value.substr(0, tab));
    if (tab == CStringView::npos || !id)
        return false;
    const CString path(value.substr(tab + 1));
    content.drawings[toUpper(path)] = {*id, path};
    if (*id >= content.next)
        content.next = *id == largestId ? largestId : *id + 1;
    return true;
}

bool readEntry(CStringView line, Content& content) {
    const std::size_t equals = line.find(u'=');
    if (equals == CStringView::npos)
        return false;
    const CStringView name = line.substr(0, equals);
    const CStringView value = line.substr(equals + 1);
    if (name == u"local")
        return readIdentity(value, content.local);
    if (name == u"linked")
        return readIdentity(value, content.linked);
    if (name == u"id")
        return readDrawing(value, content);
    if (name != u"next")
        return false;
    const auto next = readId(value);
    content.next = std::max(content.next, next.value_or(0));
    return next.has_value();
}

/// Nothing when the text is not a store that this version understands.
std::optional<Content> parse(CStringView text) {
    Content content;
    const CStringArray lines = split(text, u'\n');
    if (lines[0] != header)
        return std::nullopt;
    for (std::size_t i = 1; i < lines.size(); ++i)
        if (!lines[i].empty() && !readEntry(lines[i], content))
            return std::nullopt;
    return content;
}

void printIdentity(CString& out, CStringView name, const Identity& identity) {
    if (identity.known)
        out.append(name).append(u"=").append(identity.a).append(u"\t").append(identity.b).append(u"\n");
}

std::string print(const Content& content) {
    CString out(header);
    out.append(u"\nnext=").append(toText(content.next)).append(u"\n");
    printIdentity(out, u"local", content.local);
    printIdentity(out, u"linked", content.linked);
    std::vector<const Drawing*> byId;
    for (const auto& [key, drawing] : content.drawings)
        byId.push_back(&drawing);
    std::sort(byId.begin(), byId.end(), [](const Drawing* x, const Drawing* y) { return x->id < y->id; });
    for (const Drawing* const drawing : byId)
        out.append(u"id=").append(toText(drawing->id)).append(u"\t").append(drawing->path).append(u"\n");
    return toUtf8(out);
}

enum class ChangeKind { add, remove, rename, keepOnly, local, linked };

/// A change that is not saved yet; `paths` are those of the operation, or the two texts of an identity.
struct Change {
    ChangeKind kind;
    CStringArray paths;
};

void addDrawing(Content& content, const CString& path) {
    if (content.drawings.contains(toUpper(path)) || content.next == largestId)
        return;
    content.drawings[toUpper(path)] = {content.next++, path};
}

void renameDrawing(Content& content, const CString& from, const CString& to) {
    const auto hit = content.drawings.find(toUpper(from));
    if (hit == content.drawings.end())
        return addDrawing(content, to);
    const std::int32_t id = hit->second.id;
    content.drawings.erase(hit);
    content.drawings[toUpper(to)] = {id, to};
}

void keepOnlyDrawings(Content& content, const CStringArray& paths) {
    std::unordered_set<CString> kept;
    for (const CString& path : paths)
        kept.insert(toUpper(path));
    std::erase_if(content.drawings, [&kept](const auto& entry) { return !kept.contains(entry.first); });
}

void apply(Content& content, const Change& change) {
    switch (change.kind) {
    case ChangeKind::add:
        return addDrawing(content, change.paths[0]);
    case ChangeKind::remove:
        content.drawings.erase(toUpper(change.paths[0]));
        return;
    case ChangeKind::rename:
        return renameDrawing(content, change.paths[0], change.paths[1]);
    case ChangeKind::keepOnly:
        return keepOnlyDrawings(content, change.paths);
    case ChangeKind::local:
        content.local = {true, change.paths[0], change.paths[1]};
        return;
    case ChangeKind::linked:
        content.linked = {true, change.paths[0], change.paths[1]};
        return;
    }
}

} // namespace

struct RyvPmUtilsRypxFiler::Store {
    enum class State { absent, loaded, damaged };
    State state = State::absent;
    Content content;
    std::vector<Change> unsaved;
    Fingerprint fingerprint;

    void load(Files& files, CStringView path) {
        ByteBuffer bytes;
        content = {};
        const FileStatus status = readWholeFile(files, path, bytes, fingerprint);
        state = State::damaged;
        if (status.error == FileError::missing) {
            state = State::absent;
        } else if (status.ok()) {
            if (auto parsed = parse(decodeUtf8(bytes.view()))) {
                content = std::move(*parsed);
                state = State::loaded;
            }
        }
    }

    void change(ChangeKind kind, CStringArray paths) {
        if (state == State::damaged)
            return;
        unsaved.push_back({kind, std::move(paths)});
        apply(content, unsaved.back());
    }
};

RyvPmUtilsRypxFiler::RyvPmUtilsRypxFiler(Files& files, CStringView project)
    : files_(files), project_(project) {}

RyvPmUtilsRypxFiler::~RyvPmUtilsRypxFiler() = default;

CString RyvPmUtilsRypxFiler::storePathFor(CStringView project) {
    return paths::removeExtension(project).append(u".rypx");
}

RyvPmUtilsRypxFiler::Store& RyvPmUtilsRypxFiler::store() {
    if (!store_) {
        store_ = std::make_unique<Store>();
        store_->load(files_, storePathFor(project_));
    }
    return *store_;
}

/// Relative to the project's folder, so that identifiers survive when the whole folder moves.
CString RyvPmUtilsRypxFiler::keyOf(CStringView path) const {
    CString key = oneLine(path);
    if (auto relative = paths::relativePathTo(paths::folderOf(project_), key))
        key = std::move(*relative);
    return key.starts_with(u".\\") ? key.substr(2) : key;
}

bool RyvPmUtilsRypxFiler::GetProjectData(CString& a, CString& b, bool local) {
    const Identity& identity = local ? store().content.local : store().content.linked;
    if (!identity.known)
        return false;
    a = identity.a;
    b = identity.b;
    return true;
}

void RyvPmUtilsRypxFiler::SetProjectData(CStringView a, CStringView b, bool local) {
    store().change(local ? ChangeKind::local : ChangeKind::linked, {oneLine(a), oneLine(b)});
}

bool RyvPmUtilsRypxFiler::knowsDrawings() {
    return !store().content.drawings.empty();
}

CArray<std::int32_t> RyvPmUtilsRypxFiler::ValidateAndGetFileIds(const CStringArray& paths) {
    CArray<std::int32_t> ids;
    if (!knowsDrawings())
        return ids;
    ids.reserve(paths.size());
    for (const CString& path : paths)
        ids.push_back(GetFileId(path));
    return ids;
}

std::int32_t RyvPmUtilsRypxFiler::GetFileId(CStringView path) {
    const Drawings& drawings = store().content.drawings;
    const auto hit = drawings.find(toUpper(keyOf(path)));
    return hit == drawings.end() ? 0 : hit->second.id;
}

std::int32_t RyvPmUtilsRypxFiler::add(CStringView path) {
    if (const std::int32_t known = GetFileId(path))
        return known;
    store().change(ChangeKind::add, {keyOf(path)});
    return GetFileId(path);
}

void RyvPmUtilsRypxFiler::remove(CStringView path) {
    if (GetFileId(path) != 0)
        store().change(ChangeKind::remove, {keyOf(path)});
}

void RyvPmUtilsRypxFiler::rename(CStringView from, CStringView to) {
    store().change(ChangeKind::rename, {keyOf(from), keyOf(to)});
}

void RyvPmUtilsRypxFiler::keepOnly(const CStringArray& paths) {
    if (store().content.drawings.empty())
        return;
    CStringArray keys;
    for (const CString& path : paths)
        keys.push_back(keyOf(path));
    const std::size_t before = store().content.drawings.size();
    store().change(ChangeKind::keepOnly, std::move(keys));
    if (store().content.drawings.size() == before)
        store().unsaved.pop_back();
}

bool RyvPmUtilsRypxFiler::hasUnsavedChanges() const noexcept {
    return store_ && !store_->unsaved.empty();
}

FileStatus RyvPmUtilsRypxFiler::save() {
    constexpr int attempts = 20;
    const CString path = storePathFor(project_);
    FileStatus status;
    for (int attempt = 0; attempt < attempts && store_ && !store_->unsaved.empty(); ++attempt) {
        const std::string bytes = print(store_->content);
        const SaveResult result = saveAtomically(files_, {path, bytes, store_->fingerprint});
        status = result.status;
        if (result.replaced) {
            store_->fingerprint = result.written;
            store_->state = Store::State::loaded;
            store_->unsaved.clear();
        }
        if (status.error != FileError::changedOutside)
            return status;
        std::vector<Change> unsaved = std::move(store_->unsaved);
        store_->load(files_, path);
        if (store_->state == Store::State::damaged)
            return status;
        for (const Change& change : unsaved)
            apply(store_->content, change);
        store_->unsaved = std::move(unsaved);
    }
    return status;
}

} // namespace ryv
