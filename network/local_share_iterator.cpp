#include "network/local_share_iterator.h"

namespace ryv {

bool LocalShareIterator::next(NetworkShare& share) {
    while (next_ < shares_.size()) {
        const NetworkShare& each = shares_[next_++];
        if (each.name.empty() || each.name.ends_with(u'$'))
            continue;
        share = each;
        return true;
    }
    return false;
}

} // namespace ryv
