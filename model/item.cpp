#include "model/item.h"

#include "model/file_details.h"
#include "model/subfolder.h"

namespace ryv {

const RyvPrmFileDetails* asFileDetails(const RyvPrmItem* item) noexcept {
    return item && item->kind_ == RyvPrmItem::Kind::drawing ? static_cast<const RyvPrmFileDetails*>(item)
                                                            : nullptr;
}

const RyvPrmSubfolder* asSubfolder(const RyvPrmItem* item) noexcept {
    return item && item->kind_ == RyvPrmItem::Kind::subfolder ? static_cast<const RyvPrmSubfolder*>(item)
                                                              : nullptr;
}

RyvPrmFileDetails* asFileDetails(RyvPrmItem* item) noexcept {
    return const_cast<RyvPrmFileDetails*>(asFileDetails(static_cast<const RyvPrmItem*>(item)));
}

RyvPrmSubfolder* asSubfolder(RyvPrmItem* item) noexcept {
    return const_cast<RyvPrmSubfolder*>(asSubfolder(static_cast<const RyvPrmItem*>(item)));
}

} // namespace ryv
