#include "utilities/BreakLine.h"

#include "records/BoxGrid.h"
#include "records/Candidates.h"
#include "records/PipeBox.h"
#include "utilities/BreakLines.h"
#include "utilities/ClassifyLinePair.h"
#include "utilities/EnterEntity.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

namespace {

using namespace tkvlt;

bool BreaksFirst(int code) {
    return code == kGapOnFirst || code == kSecondEndsOnFirst || code == kCross;
}

bool BreaksSecond(int code) {
    return code == kGapOnSecond || code == kFirstEndsOnSecond || code == kCross;
}

/// Shortens the line to `point` and gives the rest, which runs from the old end back to it.
std::unique_ptr<AcDbLine> BreakAt(AcDbLine* line, const AcGePoint3d& point) {
    std::unique_ptr<AcDbLine> piece(AcDbLine::cast(line->clone()));
    piece->setStartPoint(line->endPoint());
    piece->setEndPoint(point);
    line->setEndPoint(point);
    return piece;
}

void BreakPair(AcDbLine* first, AcDbLine* second, AcDbObjectIdArray& lines) {
    AcGePoint3dArray points;
    const int code = PelClassifyLinePair(first, second, points);
    std::unique_ptr<AcDbLine> pieces[2];
    if (BreaksFirst(code)) {
        pieces[0] = BreakAt(first, points[0]);
    }
    if (BreaksSecond(code)) {
        pieces[1] = BreakAt(second, points[0]);
    }
    for (std::unique_ptr<AcDbLine>& piece : pieces) {
        if (piece != nullptr) {
            lines.append(EnterEntity(std::move(piece)));
        }
    }
}

/// The widest gap across which the classifier still lets one line break the other, with what
/// tolerances add, in drawing units.
double FarthestGap() {
    constexpr double gap = 10.0;
    return std::max(1.0, std::fabs(GetDwgScale())) * gap + 2.0 * AcGeContext::gTol.equalPoint();
}

/// Null when the line cannot be opened. What is no line counts as that: nothing of it is known that
/// could be set.
AcDbLine* OpenLine(AcDbObjectId id) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForWrite) != Acad::eOk) {
        return nullptr;
    }
    AcDbLine* const line = AcDbLine::cast(object);
    if (line == nullptr) {
        object->close();
    }
    return line;
}

/// Two lines meet at one place, so each of n lines is broken once at most for every other. Where
/// coordinates are so large that rounding moves that place by more than the lengths which the
/// classifier looks at, it is found anew on every piece; only this number ends the breaking then.
std::size_t MostPieces(const AcDbObjectIdArray& lines) {
    const auto count = static_cast<std::size_t>(lines.length());
    return count * count;
}

/// Acts on the lines at two places of the list. False when the first cannot be opened, and when
/// there are so many pieces that two more cannot be.
bool BreakAtPlaces(AcDbObjectIdArray& lines, int i, int j, std::size_t mostPieces) {
    if (static_cast<std::size_t>(lines.length()) + 2 > mostPieces) {
        return false;
    }
    AcDbLine* first = OpenLine(lines[i]);
    if (first == nullptr) {
        return false;
    }
    if (AcDbLine* second = OpenLine(lines[j])) {
        BreakPair(first, second, lines);
        second->close();
    }
    first->close();
    return true;
}

/// Where another line must come for the two to break one another, in plan. What is no line, or
/// cannot be read, may lie anywhere.
PlanBox BoxOf(AcDbObjectId id) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead, AcDbLine::desc(), false) != Acad::eOk) {
        return PlanBox::Everywhere();
    }
    const AcGePoint3d start = static_cast<AcDbLine*>(object)->startPoint();
    const AcGePoint3d end = static_cast<AcDbLine*>(object)->endPoint();
    object->close();
    PlanBox box = PlanBox::Of(start);
    box.Include(PlanBox::Of(end));
    return box.Widened(FarthestGap() + std::max(RoundingSlack(start), RoundingSlack(end)));
}

/// Lines only get shorter and pieces lie on their lines, so the box that a line had stays good.
void BreakNeighbours(AcDbObjectIdArray& lines) {
    const std::size_t mostPieces = MostPieces(lines);
    BoxGrid earlier(FarthestGap());
    for (int i = 0; i < lines.length(); ++i) {
        const PlanBox box = BoxOf(lines[i]);
        Indices neighbours;
        earlier.Collect(box, neighbours);
        neighbours.SortUnique();
        for (const int j : neighbours) {
            if (!BreakAtPlaces(lines, i, j, mostPieces)) {
                break;
            }
        }
        earlier.Add(i, box);
    }
}

void BreakAllPairs(AcDbObjectIdArray& lines) {
    const std::size_t mostPieces = MostPieces(lines);
    for (int i = 1; i < lines.length(); ++i) {
        for (int j = 0; j < i; ++j) {
            if (!BreakAtPlaces(lines, i, j, mostPieces)) {
                break;
            }
        }
    }
}

} // namespace

void PelBreakLine(AcDbObjectIdArray& lines) {
    // A handful of lines is broken sooner than looked over.
    constexpr int handful = 16;
    tkvlt::BreakLines(lines, lines.length() <= handful ? CandidateMode::kPlainScan
                                                       : CandidateModeFromEnvironment());
}

void tkvlt::BreakLines(AcDbObjectIdArray& lines, CandidateMode mode) {
    if (mode == CandidateMode::kPlainScan) {
        BreakAllPairs(lines);
    } else {
        BreakNeighbours(lines);
    }
}
