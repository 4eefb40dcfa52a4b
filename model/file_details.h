// A drawing of a project.
#pragma once

#include "base/export.h"
#include "base/strings.h"
#include "model/drawing_pool.h"
#include "model/item.h"

#include <cstdint>
#include <memory>

namespace ryv {

/// A drawing. Copies share their content until one of them is written to, so a copy costs two words. What the
/// getters give is valid until the record is written to or destroyed.
class RYV_EXPORT RyvPrmFileDetails : public RyvPrmItem {
public:
    RyvPrmFileDetails();
    explicit RyvPrmFileDetails(CStringView fileName);
    ~RyvPrmFileDetails() override;

    /// The copy has all six fields and is in no tree.
    RyvPrmFileDetails(const RyvPrmFileDetails& other);

    /// Takes all six fields over; the drawing keeps its place in its tree.
    RyvPrmFileDetails& operator=(const RyvPrmFileDetails& other);

    /// Full path of the drawing file; absolute once read.
    CStringView getFileName() const noexcept { return pool_ ? pool_->fileName(number_) : CStringView(); }
    void setFileName(CStringView fileName);

    /// Identifier in the project's companion store, 0 when unknown.
    std::int32_t getFileId() const noexcept { return pool_ ? pool_->fileId(number_) : 0; }
    void setFileId(std::int32_t id);

    /// The "=" and the "==" line.
    CStringView getDescription1() const noexcept {
        return pool_ ? pool_->description1(number_) : CStringView();
    }
    void setDescription1(CStringView text);
    CStringView getDescription2() const noexcept {
        return pool_ ? pool_->description2(number_) : CStringView();
    }
    void setDescription2(CStringView text);

    /// The "===" lines.
    DescriptionLines getDescriptions() const noexcept {
        return pool_ ? pool_->descriptions(number_) : DescriptionLines();
    }
    void setDescriptions(const CStringList& lines);
    void addDescription(CStringView line);

    /// The "====REF" line: the drawing is listed for reference only.
    bool isReferenceOnly() const noexcept { return pool_ && pool_->isReferenceOnly(number_); }
    void setReferenceOnly(bool referenceOnly);

    /// Exact comparison of all six fields in order; case counts.
    bool operator==(const RyvPrmFileDetails& other) const noexcept;

private:
    friend class DrawingSectionReader;
    struct Fields;

    /// A record of a pool that is still being filled.
    RyvPrmFileDetails(std::shared_ptr<DrawingPool> pool, std::uint32_t number);
    /// Told before the pool gives this record, which is in a tree already, its name.
    void aboutToBeNamed(CStringView fileName);
    Fields fields() const;
    void store(const Fields& fields);

    std::uint32_t number_ = 0;          // in front of the pool, where it fits behind the base's members
    std::shared_ptr<DrawingPool> pool_; // null for a record with all fields empty
};

} // namespace ryv
