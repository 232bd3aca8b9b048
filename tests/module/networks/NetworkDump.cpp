#include "module/networks/NetworkDump.h"

#include "module/support/Compare.h"

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

void put(std::ostream& out, const CString& text) {
    out << '"' << utf8(text) << "\" ";
}

void put(std::ostream& out, const AcArray<AcDbObjectId>& ids) {
    out << "[ ";
    for (int i = 0; i < ids.length(); ++i) {
        put(out, ids.at(i));
    }
    out << "] ";
}

void put(std::ostream& out, const CArray<int, int>& numbers) {
    out << "[ ";
    for (const int number : intsOf(numbers)) {
        out << number << ' ';
    }
    out << "] ";
}

void putLinks(std::ostream& out, const Well& node) {
    put(out, node.nodeEntity);
    put(out, node.mergedEntities);
    out << node.isWell << ' ' << node.inSeg << ' ';
    put(out, node.outSegs);
}

void putLinks(std::ostream& out, const GravitySeg& seg) {
    put(out, seg.pipeIds);
    out << seg.startWell << ' ' << seg.endWell << ' ';
    put(out, seg.startEntity);
    put(out, seg.endEntity);
    out << seg.flowReversed << ' ';
}

void putBlock(std::ostream& out, const _Block& block) {
    put(out, block.id);
    put(out, block.layer);
    put(out, block.systemName);
    put(out, block.note);
    put(out, block.handle);
    put(out, block.position);
    put(out, block.extents.minPoint());
    put(out, block.extents.maxPoint());
    out << block.valid << ' ' << block.rotation << ' ' << block.radius << ' ' << block.isSquareWell
        << ' ' << block.scale.sx << ' ' << block.scale.sy << ' ' << block.scale.sz << ' ';
}

void putNode(std::ostream& out, const Well& node) {
    putLinks(out, node);
    putBlock(out, node);
    put(out, node.nodePoint);
    put(out, node.number);
    out << node.nodeRadius << ' ' << node.extraList.GetSize() << ' ' << node.extraPoint[0] << ' '
        << node.extraPoint[1] << ' ' << node.extraPoint[2] << '\n';
}

void putSeg(std::ostream& out, const GravitySeg& seg) {
    putLinks(out, seg);
    put(out, seg.startPoint);
    put(out, seg.endPoint);
    put(out, seg.flowText);
    put(out, seg.material);
    put(out, seg.systemName);
    put(out, seg.annotatePoint);
    out << '<' << seg.annotateVector.x << ' ' << seg.annotateVector.y << ' ' << seg.annotateVector.z
        << "> ";
    out << seg.startElevation << ' ' << seg.endElevation << ' ' << seg.slope << ' ' << seg.diameter
        << ' ' << seg.length << ' ' << seg.extraValue1 << ' ' << seg.extraValue2 << ' '
        << seg.extraValue3 << ' ' << seg.extraValue5 << '\n';
}

void putPaths(std::ostream& out, const GravitySearchObject& network) {
    out << "root " << network.rootWell << " path ";
    put(out, network.pathWells);
    put(out, network.pathSegs);
    out << '\n';
}

template<class PutNode, class PutSeg>
std::string dumpWith(const GravitySearchObject& network, PutNode node, PutSeg seg) {
    std::ostringstream out;
    out << std::hexfloat;
    putPaths(out, network);
    for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
        node(out, network.wells.GetAt(i));
        out << '\n';
    }
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        seg(out, network.segs.GetAt(i));
        out << '\n';
    }
    return out.str();
}

} // namespace

std::string dump(const GravitySearchObject& network) {
    return dumpWith(network, putNode, putSeg);
}

std::string dump(const GravitySeg& seg) {
    std::ostringstream out;
    out << std::hexfloat;
    putSeg(out, seg);
    return out.str();
}

std::string dumpGraph(const GravitySearchObject& network) {
    return dumpWith(
        network, [](std::ostream& out, const Well& node) { putLinks(out, node); },
        [](std::ostream& out, const GravitySeg& seg) { putLinks(out, seg); });
}

} // namespace module_tests
