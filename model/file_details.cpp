#include "model/file_details.h"

#include "base/text.h"
#include "model/project_index.h"
#include "model/subfolder.h"

#include <algorithm>
#include <utility>

namespace ryv {

/// The content of one record, taken out of its pool to be changed.
struct RyvPrmFileDetails::Fields {
    CString fileName;
    CString description1;
    CString description2;
    CStringList descriptions;
    std::int32_t fileId = 0;
    bool referenceOnly = false;
};

RyvPrmFileDetails::RyvPrmFileDetails() : RyvPrmItem(Kind::drawing) {}

RyvPrmFileDetails::RyvPrmFileDetails(CStringView fileName) : RyvPrmFileDetails() {
    setFileName(fileName);
}

RyvPrmFileDetails::RyvPrmFileDetails(std::shared_ptr<DrawingPool> pool, std::uint32_t number)
    : RyvPrmItem(Kind::drawing), number_(number), pool_(std::move(pool)) {}

RyvPrmFileDetails::~RyvPrmFileDetails() = default;

RyvPrmFileDetails::RyvPrmFileDetails(const RyvPrmFileDetails& other) = default;

RyvPrmFileDetails& RyvPrmFileDetails::operator=(const RyvPrmFileDetails& other) {
    if (this == &other)
        return *this;
    if (getFileName() != other.getFileName())
        aboutToBeNamed(other.getFileName());
    pool_ = other.pool_;
    number_ = other.number_;
    return *this;
}

RyvPrmFileDetails::Fields RyvPrmFileDetails::fields() const {
    const DescriptionLines lines = getDescriptions();
    return {CString(getFileName()), CString(getDescription1()), CString(getDescription2()),
        CStringList(lines.begin(), lines.end()), getFileId(), isReferenceOnly()};
}

/// Detaches: other records that share the old pool keep what they have.
void RyvPrmFileDetails::store(const Fields& fields) {
    CString text = fields.description1 + fields.description2;
    for (const CString& line : fields.descriptions)
        text += line;
    const auto shared = std::make_shared<const CString>(std::move(text));
    auto pool = std::make_shared<DrawingPool>(shared);
    CStringView rest(*shared);
    const auto next = [&rest](std::size_t length) {
        const CStringView part = rest.substr(0, length);
        rest.remove_prefix(length);
        return part;
    };
    number_ = pool->add();
    pool->setFileName(fields.fileName);
    pool->setDescription1(next(fields.description1.size()));
    pool->setDescription2(next(fields.description2.size()));
    for (const CString& line : fields.descriptions)
        pool->addDescription(next(line.size()));
    pool->last().fileId = fields.fileId;
    pool->last().referenceOnly = fields.referenceOnly;
    pool->trim();
    pool_ = std::move(pool);
}

void RyvPrmFileDetails::aboutToBeNamed(CStringView fileName) {
    if (parent() && parent()->index_)
        parent()->index_->aboutToRename(*this, fileName);
}

void RyvPrmFileDetails::setFileName(CStringView fileName) {
    if (fileName == getFileName())
        return;
    Fields changed = fields();
    changed.fileName = fileName;
    aboutToBeNamed(changed.fileName);
    store(changed);
}

void RyvPrmFileDetails::setFileId(std::int32_t id) {
    if (id == getFileId())
        return;
    Fields changed = fields();
    changed.fileId = id;
    store(changed);
}

void RyvPrmFileDetails::setDescription1(CStringView text) {
    Fields changed = fields();
    changed.description1 = text;
    store(changed);
}

void RyvPrmFileDetails::setDescription2(CStringView text) {
    Fields changed = fields();
    changed.description2 = text;
    store(changed);
}

void RyvPrmFileDetails::setDescriptions(const CStringList& lines) {
    Fields changed = fields();
    changed.descriptions = lines;
    store(changed);
}

void RyvPrmFileDetails::addDescription(CStringView line) {
    Fields changed = fields();
    changed.descriptions.emplace_back(line);
    store(changed);
}

void RyvPrmFileDetails::setReferenceOnly(bool referenceOnly) {
    Fields changed = fields();
    changed.referenceOnly = referenceOnly;
    store(changed);
}

bool RyvPrmFileDetails::operator==(const RyvPrmFileDetails& other) const noexcept {
    if (pool_ == other.pool_ && number_ == other.number_)
        return true;
    return sameText(getFileName(), other.getFileName()) && getFileId() == other.getFileId() &&
           sameText(getDescription1(), other.getDescription1()) &&
           sameText(getDescription2(), other.getDescription2()) &&
           getDescriptions() == other.getDescriptions() && isReferenceOnly() == other.isReferenceOnly();
}

} // namespace ryv
