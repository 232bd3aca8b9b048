#include "module/pressure/PressureDump.h"

#include "module/pressure/PressureTest.h"

#include <ios>
#include <sstream>

namespace module_tests {

namespace {

void put(std::ostream& out, const AcDbObjectId& id) {
    ACHAR digits[17];
    id.handle().getIntoAsciiBuffer(digits);
    out << (id.isNull() ? "-" : host_text::toUtf8(digits)) << ' ';
}

void put(std::ostream& out, const AcGePoint3d& point) {
    out << '(' << point.x << ' ' << point.y << ' ' << point.z << ") ";
}

void put(std::ostream& out, const AcGeVector3d& vector) {
    put(out, AcGePoint3d() + vector);
}

void put(std::ostream& out, const CString& text) {
    out << '"' << utf8(text) << "\" ";
}

void put(std::ostream& out, int number) {
    out << number << ' ';
}

template<class Items>
void putAll(std::ostream& out, const Items& items) {
    out << "[ ";
    for (const auto& item : items) {
        put(out, item);
    }
    out << "] ";
}

void putFittings(std::ostream& out, PressureSeg& seg) {
    putAll(out, pointsOf(seg.valvePoints));
    putAll(out, idsOf(seg.valveIds));
    putAll(out, pointsOf(seg.meterPoints));
    putAll(out, idsOf(seg.meterIds));
    putAll(out, pointsOf(seg.outputPoints));
    out << seg.outputValues.GetSize() << ' ' << seg.outputIds.GetSize() << ' ';
}

void putCurve(std::ostream& out, PressureSeg& seg) {
    out << seg.isArc << ' ';
    put(out, seg.line.startPoint());
    put(out, seg.line.endPoint());
    put(out, seg.arc.center());
    put(out, seg.arc.normal());
    put(out, seg.arc.startPoint());
    put(out, seg.arc.endPoint());
    out << seg.arc.radius() << ' ' << seg.arc.startAng() << ' ' << seg.arc.endAng() << ' ';
}

void putSeg(std::ostream& out, PressureSeg& seg) {
    putAll(out, idsOf(seg.pipeIds));
    putAll(out, intsOf(seg.orientationFlags));
    put(out, seg.startPoint);
    put(out, seg.endPoint);
    out << seg.parent << ' ' << seg.reversed << ' ';
    putAll(out, intsOf(seg.children));
    putFittings(out, seg);
    out << seg.startElevation << ' ' << seg.endElevation << ' ' << seg.slope << ' ' << seg.diameter
        << ' ';
    put(out, seg.flowText);
    put(out, seg.material);
    put(out, seg.systemName);
    out << seg.callerValueA << ' ' << seg.callerValueB << ' ' << seg.lengthMode << ' ';
    putCurve(out, seg);
    put(out, seg.GetAnnoatePoint());
    put(out, seg.GetAnnnotateVector());
    out << seg.GetLength() << '\n';
}

} // namespace

std::string dump(CArray<PressureSeg, PressureSeg&>& segs) {
    std::ostringstream out;
    out << std::hexfloat;
    for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
        out << i << ": ";
        putSeg(out, segs[i]);
    }
    return out.str();
}

} // namespace module_tests
