#include "module/pressure/LiteralSplit.h"

#include "module/pressure/PressureTest.h"

namespace module_tests {

namespace {

double endTolerance() {
    return 10.0 / GetVZDrawScale();
}

bool sameArc(const AcGeCircArc3d& a, const AcGeCircArc3d& b) {
    return a.center() == b.center() && a.radius() == b.radius() && a.normal() == b.normal() &&
           a.startAng() == b.startAng() && a.endAng() == b.endAng() &&
           samePoint(a.startPoint(), b.startPoint(), 0) && samePoint(a.endPoint(), b.endPoint(), 0);
}

bool samePipe(const _Pipe& a, const _Pipe& b) {
    return a.id == b.id && a.orientationFlag == b.orientationFlag && a.isArc == b.isArc &&
           samePoint(a.startPoint, b.startPoint, 0) && samePoint(a.endPoint, b.endPoint, 0) &&
           samePoint(a.line.startPoint(), b.line.startPoint(), 0) &&
           samePoint(a.line.endPoint(), b.line.endPoint(), 0) &&
           (a.isArc == 0 || sameArc(a.arc, b.arc));
}

} // namespace

LiteralSplit::LiteralSplit(const tkvlt::RecordPool<_Pipe>& pipes) {
    for (const _Pipe* pipe : present(pipes)) {
        _Pipe copy;
        copy = *pipe;
        pool.Add(copy);
    }
}

bool LiteralSplit::hit(_Pipe& first, _Pipe& second, AcGePoint3d& point) const {
    AcGePoint3d other;
    int count = -1;
    if (first.isArc != 0 && second.isArc != 0) {
        return first.arc.intersectWith(second.arc, count, point, other) == 1 && count != 2;
    }
    if (first.isArc != 0) {
        return first.arc.intersectWith(second.line, count, point, other) == 1 && count != 2;
    }
    if (second.isArc != 0) {
        return second.arc.intersectWith(first.line, count, point, other) == 1 && count != 2;
    }
    return first.line.intersectWith(second.line, point) == 1;
}

bool LiteralSplit::isCutBy(const _Pipe& pipe, const AcGePoint3d& point) const {
    return !(point.distanceTo(pipe.startPoint) < endTolerance()) &&
           !(point.distanceTo(pipe.endPoint) < endTolerance()) &&
           (repeats_ || !isMade(pipe, point));
}

bool LiteralSplit::isMade(const _Pipe& pipe, const AcGePoint3d& point) const {
    for (const Cut& cut : made) {
        if (cut.id == pipe.id && cut.start.distanceTo(pipe.startPoint) < endTolerance() &&
            cut.end.distanceTo(pipe.endPoint) < endTolerance() &&
            cut.point.distanceTo(point) < endTolerance()) {
            return true;
        }
    }
    return false;
}

void LiteralSplit::cut(INT_PTR index, const AcGePoint3d& point) {
    _Pipe a(pool[index]);
    _Pipe b(pool[index]);
    a.orientationFlag = 0;
    b.orientationFlag = 0;
    a.endPoint = point;
    b.startPoint = point;
    if (a.isArc == 0) {
        a.line.set(AcGePoint3d(a.line.startPoint()), point);
        b.line.set(point, AcGePoint3d(b.line.endPoint()));
    } else {
        const AcGePoint3d start = a.arc.startPoint();
        const AcGePoint3d end = a.arc.endPoint();
        a.arc.set(start, end, point);
        b.arc.set(point, end, start);
    }
    made.push_back({a.id, a.startPoint, b.endPoint, point});
    pool.RemoveAt(index);
    pool.Add(a);
    pool.Add(b);
}

bool LiteralSplit::run(int limit) {
    INT_PTR i = 0;
    while (i < pool.GetSize() - 1) {
        bool restart = false;
        INT_PTR j = i + 1;
        while (j < pool.GetSize()) {
            AcGePoint3d point;
            if (!hit(pool[i], pool[j], point)) {
                ++j;
                continue;
            }
            const bool cutI = isCutBy(pool[i], point);
            const bool cutJ = isCutBy(pool[j], point);
            if (static_cast<int>(made.size()) + (cutI ? 1 : 0) + (cutJ ? 1 : 0) > limit) {
                return false;
            }
            if (cutJ) {
                cut(j, point);
            }
            if (cutI) {
                cut(i, point);
                restart = true;
                break;
            }
            j += cutJ ? 0 : 1;
        }
        i += restart ? 0 : 1;
    }
    return true;
}

bool LiteralSplit::runWithoutRepeats(int limit) {
    repeats_ = false;
    return run(limit);
}

::testing::AssertionResult same(LiteralSplit::Pool& literal, const tkvlt::RecordPool<_Pipe>& pool) {
    const std::vector<const _Pipe*> pipes = present(pool);
    if (static_cast<INT_PTR>(pipes.size()) != literal.GetSize()) {
        return ::testing::AssertionFailure()
               << pipes.size() << " pipes instead of " << literal.GetSize();
    }
    for (std::size_t i = 0; i < pipes.size(); ++i) {
        if (!samePipe(*pipes[i], literal[static_cast<INT_PTR>(i)])) {
            return ::testing::AssertionFailure() << "pipe " << i << " of " << pipes.size();
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace module_tests
