#include "records/Well.h"

#include <algorithm>

namespace {

void CopyNodeFields(Well& target, const Well& source) {
    target.isWell = source.isWell;
    target.nodeEntity = source.nodeEntity;
    target.nodePoint = source.nodePoint;
    target.nodeRadius = source.nodeRadius;
    target.outSegs.Copy(source.outSegs);
    target.inSeg = source.inSeg;
    target.number = source.number;
    target.extraList.Copy(source.extraList);
    std::copy(std::begin(source.extraPoint), std::end(source.extraPoint),
              std::begin(target.extraPoint));
}

} // namespace

Well::Well() = default;

Well::Well(Well& other) : _Block(other) {
    CopyNodeFields(*this, other);
}

Well& Well::operator=(const Well& other) {
    if (this != &other) {
        _Block::operator=(other);
        CopyNodeFields(*this, other);
    }
    return *this;
}

Well::~Well() = default;
