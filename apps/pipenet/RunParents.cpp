#include "RunParents.h"

#include <limits>

namespace pipenet {

namespace {

using Runs = CArray<PressureSeg, PressureSeg&>;

/// Whether each entry of `children` leads to a run that names the same parent, and each run with a
/// parent has one entry.
bool entriesAgree(Runs& runs) {
    INT_PTR entries = 0;
    INT_PTR hanging = 0;
    for (INT_PTR i = 0; i < runs.GetSize(); ++i) {
        hanging += runs[i].parent >= 0 ? 1 : 0;
        const CArray<int, int>& children = runs[i].children;
        entries += children.GetSize();
        for (INT_PTR n = 0; n < children.GetSize(); ++n) {
            const int child = children[n];
            if (child <= i || child >= runs.GetSize() || runs[child].parent != i) {
                return false;
            }
        }
    }
    return entries == hanging;
}

/// The first run where no distance is a number; a run that hangs on another stands behind it.
int nearestEarlier(Runs& runs, INT_PTR index) {
    const AcGePoint3d begin = runs[index].GetBeginPoint();
    double least = std::numeric_limits<double>::infinity();
    int nearest = 0;
    for (int i = 0; i < index; ++i) {
        const double distance = runs[i].GetSearchPoint().distanceTo(begin);
        if (distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return nearest;
}

} // namespace

std::vector<int> runParents(Runs& runs) {
    const bool agree = entriesAgree(runs);
    std::vector<int> parents;
    for (INT_PTR i = 0; i < runs.GetSize(); ++i) {
        const int parent = runs[i].parent;
        parents.push_back(agree || parent < 0 ? parent : nearestEarlier(runs, i));
    }
    return parents;
}

} // namespace pipenet
