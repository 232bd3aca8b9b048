#pragma once

#include "platform.h"

namespace tkvlt {

/// How two lines lie to each other, and which of them is broken for it.
enum LinePairCode {
    kApartOrSame = 0, ///< no usable meeting point, or both within the tolerance of each other
    kEndsMeet = 1,    ///< they meet at an end of each
    kGapOnFirst = 2,  ///< extended, the second one would end on the inside of the first
    kGapOnSecond = 3, ///< extended, the first one would end on the inside of the second
    kSecondEndsOnFirst = 4,
    kFirstEndsOnSecond = 5,
    kCross = 6,    ///< on the inside of both
    kMeetOften = 7 ///< in more than one point
};

} // namespace tkvlt

/// Classifies two lines that the caller has open, and gives the meeting points in `points`, as they
/// are in the end: those of the bounded lines, else those of the extended ones. In a real crossing
/// an end is near below 10.0 drawing units; for the extended lines and for lines that lie on top of
/// each other it is near up to ten times the drawing scale. Returns a LinePairCode.
int PelClassifyLinePair(AcDbLine*& first, AcDbLine*& second, AcGePoint3dArray& points);
