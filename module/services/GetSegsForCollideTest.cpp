#include "services/GetSegsForCollideTest.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

#include "frame/FlowKind.h"
#include "pressure/BuildSingleSeg.h"
#include "records/XdataKeys.h"
#include "services/SinglePipeSearch.h"
#include "utilities/PelIsIdArrSame.h"

namespace {

/// An unknown system is built as a pressure pipe, so that the caller sees the pipe's own values.
void BuildSeg(Seg& seg, const AcDbObjectId& pipe, tkvlt::SinglePipeSearch& search) {
    const CString systemName = XdataText(pipe, xdata::kPipeSystem);
    switch (PelGetDirectionSytle(systemName)) {
    case 1:
        seg.kind = 1;
        search.Build(seg.gravity, pipe, systemName);
        break;
    case 0:
        seg.kind = 0;
        tkvlt::BuildSingleSeg(seg.pressure, pipe);
        break;
    default:
        seg.kind = -1;
        tkvlt::BuildSingleSeg(seg.pressure, pipe);
        break;
    }
}

/// A gravity stretch from node to node. A stretch with an open end holds only the pipe that it was
/// built from, so it cannot tell whether it repeats another.
bool IsWholeStretch(const Seg& seg) {
    return seg.kind == 1 && !seg.gravity.startEntity.isNull() && !seg.gravity.endEntity.isNull();
}

/// The same for lists that hold the same ids in any order.
std::size_t OrderlessHash(const AcDbObjectIdArray& ids) {
    std::size_t sum = 0;
    for (int i = 0; i < ids.length(); ++i) {
        sum += std::hash<AcDbObjectId>()(ids.at(i));
    }
    return sum;
}

/// Ascending indices of the whole stretches that have the pipes of an earlier one.
std::vector<INT_PTR> FindDuplicates(const CArray<Seg, Seg&>& segs) {
    std::unordered_map<std::size_t, std::vector<INT_PTR>> firstOnes;
    std::vector<INT_PTR> duplicates;
    for (INT_PTR j = 0; j < segs.GetSize(); ++j) {
        if (!IsWholeStretch(segs.GetAt(j))) {
            continue;
        }
        const AcDbObjectIdArray& pipes = segs.GetAt(j).gravity.pipeIds;
        std::vector<INT_PTR>& candidates = firstOnes[OrderlessHash(pipes)];
        const bool repeats = std::any_of(candidates.begin(), candidates.end(), [&](INT_PTR i) {
            return PelIsIdArrSame(segs.GetAt(i).gravity.pipeIds, pipes) != 0;
        });
        (repeats ? duplicates : candidates).push_back(j);
    }
    return duplicates;
}

/// Moves what stays forward, once each: removal one by one would shift the whole tail every time.
///
/// @param indices ascending; the first entry of the list is never among them.
void RemoveEntries(CArray<Seg, Seg&>& segs, const std::vector<INT_PTR>& indices) {
    auto nextRemoved = indices.begin();
    INT_PTR kept = 0;
    for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
        if (nextRemoved != indices.end() && *nextRemoved == i) {
            ++nextRemoved;
            continue;
        }
        if (kept != i) {
            segs.ElementAt(kept) = segs.ElementAt(i);
            // The one field that an assignment leaves out.
            segs.ElementAt(kept).pressure.lengthMode = segs.GetAt(i).pressure.lengthMode;
        }
        ++kept;
    }
    segs.SetSize(kept);
}

} // namespace

int GetSegsForCollideTest(CArray<Seg, Seg&>& segs, const AcDbObjectIdArray& pipes,
                          int removeDuplicates) {
    if (pipes.length() < 1) {
        return 0;
    }
    // A copy, for the list may belong to an entry that moves when `segs` grows.
    AcDbObjectIdArray ids;
    ids.append(pipes);
    tkvlt::SinglePipeSearch search;
    for (int i = 0; i < ids.length(); ++i) {
        Seg seg;
        BuildSeg(seg, ids.at(i), search);
        segs.Add(seg);
    }
    if (removeDuplicates != 0) {
        RemoveEntries(segs, FindDuplicates(segs));
    }
    return 1;
}
