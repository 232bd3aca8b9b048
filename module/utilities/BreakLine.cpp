#include "utilities/BreakLine.h"

#include "utilities/ClassifyLinePair.h"
#include "utilities/EnterEntity.h"

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

AcDbLine* OpenLine(AcDbObjectId id) {
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, AcDb::kForWrite);
    return status == Acad::eOk ? static_cast<AcDbLine*>(object) : nullptr;
}

} // namespace

void PelBreakLine(AcDbObjectIdArray& lines) {
    for (int i = 1; i < lines.length(); ++i) {
        for (int j = 0; j < i; ++j) {
            AcDbLine* first = OpenLine(lines[i]);
            if (first == nullptr) {
                break;
            }
            AcDbLine* second = OpenLine(lines[j]);
            if (second == nullptr) {
                first->close();
                continue;
            }
            BreakPair(first, second, lines);
            second->close();
            first->close();
        }
    }
}
