#include "core/Drawing.h"

namespace morvane {

void Drawing::clear(Color back) {
    ops_.clear();
    add(draw::Clear{back});
    currentX_ = 0;
    currentY_ = 0;
}

void Drawing::add(DrawOp op) {
    ops_.push_back(std::move(op));
}

}  // namespace morvane
