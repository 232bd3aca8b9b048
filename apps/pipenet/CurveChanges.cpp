#include "CurveChanges.h"

#include "OpenedObject.h"

#include <unordered_set>

namespace pipenet {

CurveEnds endsOf(const AcDbObjectId& curve) {
    CurveEnds ends;
    const siblings::OpenedObject<AcDbCurve> opened(curve, AcDb::kForRead);
    if (opened) {
        opened->getStartPoint(ends.start);
        opened->getEndPoint(ends.end);
    }
    return ends;
}

CurvesBefore::CurvesBefore(const Drawing& drawing, const AcDbObjectIdArray& curves)
    : drawing_(drawing), entities_(drawing.entities()) {
    std::unordered_set<AcDbObjectId> wanted;
    for (int i = 0; i < curves.length(); ++i) {
        wanted.insert(curves[i]);
    }
    for (const AcDbObjectId& id : entities_) {
        if (wanted.count(id) > 0) {
            curves_.push_back({id, endsOf(id), {}});
        }
    }
}

CurveChanges CurvesBefore::changes() const {
    CurveChanges found;
    for (const ChangedCurve& curve : curves_) {
        const CurveEnds after = endsOf(curve.curve);
        if (curve.curve.isErased()) {
            found.erased.push_back(curve.curve);
        } else if (after.start != curve.before.start || after.end != curve.before.end) {
            found.changed.push_back({curve.curve, curve.before, after});
        }
    }
    const std::unordered_set<AcDbObjectId> known(entities_.begin(), entities_.end());
    for (const AcDbObjectId& id : drawing_.entities()) {
        if (known.count(id) == 0) {
            found.added.push_back(id);
        }
    }
    return found;
}

} // namespace pipenet
