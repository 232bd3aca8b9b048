#include "module/trust/BothWays.h"

#include "gravity/GravityNetworkSearch.h"
#include "module/networks/NetworkDump.h"
#include "module/pressure/PressureDump.h"
#include "pressure/PressureNetworkSearch.h"

#include <sstream>

namespace module_tests {

namespace {

using tkvlt::CandidateMode;

int runSewer(GravitySearchObject& network, AcDbObjectId start, AcDbObjectId end, AcGePoint3d pick,
             CandidateMode mode) {
    return tkvlt::GravityNetworkSearch(&network, start, end, pick, mode).Run();
}

int runMain(PressureSegs& segs, AcDbObjectId picked, AcGePoint3d pick, CandidateMode mode) {
    int root = -1;
    return tkvlt::PressureNetworkSearch(segs, picked, pick, root, mode).Run();
}

void put(std::ostream& out, const char* name, const Ids& ids) {
    out << ' ' << name;
    for (const AcDbObjectId& id : ids) {
        out << ' ' << id.handle().low();
    }
}

void put(std::ostream& out, const char* name, const std::vector<int>& numbers) {
    out << ' ' << name;
    for (const int number : numbers) {
        out << ' ' << number;
    }
}

} // namespace

int searchSewer(GravitySearchObject& network, AcDbObjectId start, AcDbObjectId end,
                AcGePoint3d pick) {
    const int result = runSewer(network, start, end, pick, CandidateMode::kPlainScan);
    GravitySearchObject indexed;
    EXPECT_EQ(runSewer(indexed, start, end, pick, CandidateMode::kIndexed), result);
    EXPECT_EQ(dump(indexed), dump(network));
    return result;
}

int searchMain(PressureSegs& segs, AcDbObjectId picked, AcGePoint3d pick) {
    const int result = runMain(segs, picked, pick, CandidateMode::kPlainScan);
    PressureSegs indexed;
    EXPECT_EQ(runMain(indexed, picked, pick, CandidateMode::kIndexed), result);
    EXPECT_EQ(dump(indexed), dump(segs));
    return result;
}

std::string graphOf(PressureSegs& segs) {
    std::ostringstream out;
    for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
        PressureSeg& seg = segs.ElementAt(i);
        out << i << " on " << seg.parent << (seg.reversed != 0 ? " reversed" : "");
        put(out, "pipes", idsOf(seg.pipeIds));
        put(out, "flags", intsOf(seg.orientationFlags));
        put(out, "children", intsOf(seg.children));
        put(out, "valves", idsOf(seg.valveIds));
        put(out, "meters", idsOf(seg.meterIds));
        out << '\n';
    }
    return out.str();
}

std::wstring textOf(AcDbObjectId id, const wchar_t* key) {
    CString text;
    GetXdata(id, key, text);
    return std::wstring(static_cast<const wchar_t*>(text));
}

ShortSewer addShortSewer(DrawingBuilder& drawing, const WellTexts& first, const WellTexts& second,
                         const PipeTexts& pipe) {
    ShortSewer sewer;
    sewer.first = drawing.addWell({0, 0, 0}, first);
    sewer.second = drawing.addWell({20, 0, 0}, second);
    sewer.pipe = drawing.addPipe({0, 0, 0}, {20, 0, 0}, pipe);
    return sewer;
}

} // namespace module_tests
