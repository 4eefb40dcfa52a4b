// A drawing without a file: spaces of block references that a test fills and looks into.
#pragma once

#include "base/fold.h"
#include "platform/host/drawings.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace ryv::test {

/// One view of a drawing that nobody else sees. Spaces are as many as the test makes; `layouts` is what the
/// drawing says of itself.
class MemoryDrawing : public DrawingDatabase {
public:
    struct Reference {
        CString block;
        DrawingPoint position;
        std::vector<DrawingAttribute> attributes;
    };

    /// The test's own hands. References lie in the order of adding.
    std::vector<std::pair<CString, std::vector<Reference>>> spaces{{u"*Model_Space", {}}};
    std::size_t layouts = 2;
    std::map<CString, std::vector<DrawingAttribute>> blockFiles; ///< what inserting each file brings along
    std::set<CString> refusedTags;                               ///< cannot be added or written
    std::vector<BlockInsertion> insertions;

    Reference& add(std::size_t space, CStringView block, std::vector<DrawingAttribute> attributes) {
        spaces[space].second.push_back({CString(block), {}, std::move(attributes)});
        return spaces[space].second.back();
    }
    /// The value of an attribute, or "(none)".
    CString value(std::size_t space, std::size_t reference, CStringView tag) const {
        for (const DrawingAttribute& each : spaces[space].second[reference].attributes)
            if (equalNoCase(each.tag, tag))
                return each.value;
        return u"(none)";
    }

    CString fileName() override { return {}; }
    std::size_t layoutCount() override { return layouts; }
    bool setSpace(CStringView name) override {
        for (std::size_t i = 0; i < spaces.size(); ++i)
            if (equalNoCase(spaces[i].first, name)) {
                space_ = i;
                open_ = nullptr;
                return true;
            }
        return false;
    }
    bool firstReference(CStringView block) override {
        block_ = block;
        return findFrom(0);
    }
    bool nextReference() override { return findFrom(next_); }
    bool hasOpenReference() override { return open_ != nullptr; }
    void closeReference() override { open_ = nullptr; }
    CStringArray referredBlocks() override { return {}; }
    std::vector<DrawingAttribute> attributes() override {
        return open_ ? open_->attributes : std::vector<DrawingAttribute>();
    }
    bool hasAttribute(CStringView tag) override { return find(tag) != nullptr; }
    bool readAttribute(CStringView tag, CString& value) override {
        const DrawingAttribute* const attribute = find(tag);
        if (attribute)
            value = attribute->value;
        return attribute != nullptr;
    }
    bool writeAttribute(CStringView tag, CStringView value) override {
        DrawingAttribute* const attribute = refusedTags.contains(CString(tag)) ? nullptr : find(tag);
        if (attribute)
            attribute->value = value;
        return attribute != nullptr;
    }
    bool addAttribute(
        CStringView after, CStringView tag, CStringView value, DrawingPoint displacement) override {
        if (!open_ || find(tag) || refusedTags.contains(CString(tag)))
            return false;
        auto& all = open_->attributes;
        if (after.empty()) {
            if (!all.empty())
                return false;
            all.push_back({CString(tag), CString(value), open_->position});
            return true;
        }
        const DrawingAttribute* const place = find(after);
        if (!place)
            return false;
        const DrawingPoint at{place->position.x + displacement.x, place->position.y + displacement.y, 0};
        all.insert(all.begin() + (place - all.data()) + 1, {CString(tag), CString(value), at});
        return true;
    }
    DrawingResult insertBlock(const BlockInsertion& insertion) override {
        insertions.push_back(insertion);
        const auto file = blockFiles.find(insertion.file);
        if (file == blockFiles.end())
            return {false, insertion.file + u": missing"};
        open_ = &add(space_, insertion.block, file->second);
        open_->position = insertion.position;
        return {};
    }
    DrawingResult save() override { return {}; }

private:
    bool findFrom(std::size_t place) {
        auto& references = spaces[space_].second;
        open_ = nullptr;
        for (next_ = place; next_ < references.size() && !open_; ++next_)
            if (equalNoCase(references[next_].block, block_))
                open_ = &references[next_];
        return open_ != nullptr;
    }
    DrawingAttribute* find(CStringView tag) {
        if (!open_)
            return nullptr;
        const auto hit = std::find_if(open_->attributes.begin(), open_->attributes.end(),
            [tag](const DrawingAttribute& each) { return equalNoCase(each.tag, tag); });
        return hit == open_->attributes.end() ? nullptr : &*hit;
    }

    std::size_t space_ = 0;
    Reference* open_ = nullptr;
    CString block_;
    std::size_t next_ = 0;
};

} // namespace ryv::test
