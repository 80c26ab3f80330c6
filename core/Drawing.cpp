#include "core/Drawing.h"

namespace morvane {

void Drawing::clear(Color back) {
    ops_.clear();
    ops_.push_back(draw::Clear{back});
    currentX_ = 0;
    currentY_ = 0;
}

}  // namespace morvane
