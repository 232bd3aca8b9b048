// A small drawing with every search, service and utility run on it, once by plain scan and once by
// index: both give the same answers to the last bit and leave the same drawing, and nothing stays
// open, locked or taken.

#include "Demand.h"
#include "FuzzDrawing.h"

#include "application/HostRecorder.h"
#include "module/networks/NetworkDump.h"
#include "module/pressure/PressureDump.h"
#include "TKVltSearchModule18.h"

#include <cstdlib>
#include <memory>

namespace {

using fuzz::ByteReader;
using fuzz::demand;
using fuzz::FuzzDrawing;

using Ids = std::vector<AcDbObjectId>;

AcDbObjectId pick(const Ids& ids, ByteReader& bytes) {
    return ids.empty() ? AcDbObjectId() : ids[static_cast<std::size_t>(bytes.byte()) % ids.size()];
}

AcDbObjectIdArray arrayOf(const Ids& ids) {
    AcDbObjectIdArray array;
    for (const AcDbObjectId& id : ids) {
        array.append(id);
    }
    return array;
}

std::string dumpOf(SearchObject* object) {
    if (auto* gravity = dynamic_cast<GravitySearchObject*>(object)) {
        return module_tests::dump(*gravity);
    }
    if (auto* pressure = dynamic_cast<PressureSearchObject*>(object)) {
        return module_tests::dump(pressure->segs) + std::to_string(pressure->rootSeg);
    }
    return "none";
}

/// An index behind the end throws, as promised.
std::string deleteSeg(GravitySearchObject*& network, int segment) {
    const bool isBehindEnd = segment >= network->segs.GetSize();
    try {
        const int result = DeleteSeg(network, segment);
        demand(!isBehindEnd, "an index behind the end throws");
        return std::to_string(result);
    } catch (const CInvalidArgException&) {
        demand(isBehindEnd, "only an index behind the end throws");
        return "throws";
    }
}

std::string search(const FuzzDrawing& drawing, ByteReader& bytes) {
    AcDbObjectId start = pick(drawing.ids(), bytes);
    AcDbObjectId end = bytes.oneIn(2) ? AcDbObjectId() : pick(drawing.ids(), bytes);
    SearchObject* object = nullptr;
    const int result = GetSearchInformation(object, start, end, bytes.point());
    const std::unique_ptr<SearchObject> owner(object);
    std::string text = std::to_string(result) + dumpOf(object);
    if (auto* gravity = dynamic_cast<GravitySearchObject*>(object)) {
        AcDbObjectId target = pick(drawing.ids(), bytes);
        text += std::to_string(FindGravityPath(gravity, target));
        text += deleteSeg(gravity, bytes.below(8) - 1);
        text += module_tests::dump(*gravity);
    }
    return text;
}

std::string dumpOf(Seg& seg) {
    CArray<PressureSeg, PressureSeg&> pressure;
    pressure.Add(seg.pressure);
    return std::to_string(seg.kind) + module_tests::dump(seg.gravity) +
           module_tests::dump(pressure);
}

std::string stretches(const FuzzDrawing& drawing, ByteReader& bytes) {
    Seg seg;
    const AcDbObjectId pipe = pick(drawing.ids(), bytes);
    std::string text = std::to_string(GetSingleSeg(seg, pipe)) + dumpOf(seg);
    CArray<Seg, Seg&> segs;
    text += std::to_string(GetSegsForCollideTest(segs, arrayOf(drawing.pipes()), bytes.below(2)));
    for (INT_PTR i = 0; i < segs.GetSize(); ++i) {
        text += dumpOf(segs[i]);
    }
    return text;
}

std::string lower(const FuzzDrawing& drawing, ByteReader& bytes) {
    const AcDbObjectId pipe = pick(drawing.ids(), bytes);
    return std::to_string(LowerHeightForCollideTest(pipe, bytes.coordinate()));
}

std::string cut(const FuzzDrawing& drawing, ByteReader& bytes) {
    const AcDbObjectId line = pick(drawing.pipes(), bytes);
    const AcDbObjectId block = pick(drawing.blocks(), bytes);
    switch (bytes.below(4)) {
    case 0: {
        AcDbObjectIdArray lines = arrayOf(drawing.pipes());
        PelBreakLine(lines);
        return std::to_string(lines.length());
    }
    case 1:
        return std::to_string(PelBlockTrimLine(line, block));
    case 2:
        return std::to_string(PelBlockTrimLine(line, bytes.point(), bytes.coordinate()));
    default:
        return std::to_string(PelBlockTrimCurve(block, line));
    }
}

std::string change(const FuzzDrawing& drawing, ByteReader& bytes) {
    const AcDbObjectId id = pick(drawing.ids(), bytes);
    switch (bytes.below(3)) {
    case 0:
        return std::to_string(PelEraseObject(id));
    case 1:
        return std::to_string(PelMultiPL2DblPl(id));
    default:
        PelIdRedraw(id, bytes.below(6));
        return "redrawn";
    }
}

/// Everything that the bytes ask for; the answers as text.
std::string answers(const FuzzDrawing& drawing, ByteReader bytes) {
    std::string text;
    for (int step = 0; step < 6 && !bytes.atEnd(); ++step) {
        switch (bytes.below(8)) {
        case 0:
        case 1:
        case 2:
            text += search(drawing, bytes);
            break;
        case 3:
        case 4:
            text += stretches(drawing, bytes);
            break;
        case 5:
            text += lower(drawing, bytes);
            break;
        case 6:
            text += cut(drawing, bytes);
            break;
        default:
            text += change(drawing, bytes);
        }
        text += '\n';
    }
    return text;
}

struct Outcome {
    std::string answers;
    std::string drawing;
};

Outcome outcomeOf(module_tests::DrawingBuilder& builder, ByteReader bytes, const char* mode) {
    demand(setenv("TKVLT_CANDIDATES", mode, 1) == 0, "the environment can be set");
    const FuzzDrawing drawing(builder, bytes);
    const host::LiveCounts before = host::liveCounts();
    Outcome outcome;
    outcome.answers = answers(drawing, bytes);
    demand(host::liveCounts() == before, "what was taken from the host is given back");
    outcome.drawing = drawing.saved();
    return outcome;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static module_tests::DrawingBuilder builder;
    const ByteReader bytes(data, size);
    const Outcome plain = outcomeOf(builder, bytes, "plain");
    const Outcome indexed = outcomeOf(builder, bytes, "index");
    demand(plain.answers == indexed.answers, "both ways of searching give the same answers");
    demand(plain.drawing == indexed.drawing, "both ways of searching leave the same drawing");
    return 0;
}
