#include "FuzzDrawing.h"

#include "Demand.h"

#include "dxf/SaveDxf.h"

namespace fuzz {

using module_tests::PipeTexts;
using module_tests::TankTexts;
using module_tests::WellTexts;

namespace {

constexpr int kMostEntities = 16;

constexpr const wchar_t* kSystems[] = {module_tests::kSewer, module_tests::kSupply,
                                       module_tests::kStorm, L"未知"};
constexpr const wchar_t* kFlows[] = {L"SE", L"ES", L"", L"es"};
constexpr const wchar_t* kNumbers[] = {L"300", L"1", L"0.5", L"-2", L"0", L"1e300", L"12.5m", L""};

} // namespace

FuzzDrawing::FuzzDrawing(module_tests::DrawingBuilder& drawing, ByteReader& bytes)
    : drawing_(drawing) {
    drawing_.startAnew();
    readSettings(bytes);
    const int entities = bytes.below(kMostEntities + 1);
    for (int i = 0; i < entities; ++i) {
        addEntity(bytes);
    }
    if (!ids_.empty() && bytes.oneIn(4)) {
        setOddText(bytes);
    }
}

std::string FuzzDrawing::saved() const {
    std::string bytes;
    std::string error;
    const bool done = host_dxf::drawingBytes(drawing_.database(), "saved.dxf", bytes, error);
    demand(done || error.find("no finite number") != std::string::npos,
           "a drawing made in memory can be saved, unless it holds what no file can hold");
    return done ? bytes : error;
}

void FuzzDrawing::readSettings(ByteReader& bytes) {
    constexpr double scales[] = {1.0, 1.0, 0.5, 2.0, 0.0, 1e-9, 1e9, -1.0};
    constexpr double drawScales[] = {1000.0, 1000.0, 500.0, 1.0, 0.0, 1e12, -1000.0, 1e-300};
    constexpr double distances[] = {0.1, 0.1, 0.0, 1.0, 5.0, 1e9, -1.0, 1e-12};
    drawing_.setDwgScale(scales[bytes.below(8)]);
    drawing_.setDrawScale(drawScales[bytes.below(8)]);
    drawing_.setBreakDist(distances[bytes.below(8)]);
    drawing_.setLengthMode(bytes.below(4) - 1);
}

void FuzzDrawing::addEntity(ByteReader& bytes) {
    switch (bytes.below(8)) {
    case 0:
    case 1:
        addWell(bytes);
        break;
    case 2:
        addTank(bytes);
        break;
    case 3:
        ids_.push_back(drawing_.addText(bytes.point(), L"W1"));
        break;
    default:
        if (pipes_.size() < kMostPipes) {
            addPipe(bytes);
        }
    }
}

void FuzzDrawing::addPipe(ByteReader& bytes) {
    PipeTexts texts;
    texts.system = kSystems[bytes.oneIn(4) ? bytes.below(4) : 0];
    texts.flow = kFlows[bytes.below(4)];
    texts.diameter = kNumbers[bytes.below(8)];
    texts.startElevation = kNumbers[bytes.below(8)];
    texts.endElevation = kNumbers[bytes.below(8)];
    const AcGePoint3d from = bytes.point();
    const AcGePoint3d to = bytes.point();
    constexpr double bulges[] = {0.0, 0.0, 1.0, -1.0, 0.125, -0.5, 1e-12, 1e12};
    const double bulge = bytes.oneIn(4) ? bulges[bytes.below(8)] : 0.0;
    const bool isLine = bytes.oneIn(2) && bulge == 0.0;
    pipes_.push_back(isLine ? drawing_.addPipe(from, to, texts)
                            : drawing_.addArcPipe(from, to, bulge, texts));
    ids_.push_back(pipes_.back());
}

void FuzzDrawing::addWell(ByteReader& bytes) {
    WellTexts texts;
    texts.diameter = kNumbers[bytes.oneIn(2) ? 1 : bytes.below(8)];
    texts.number = kNumbers[bytes.below(8)];
    texts.system = kSystems[bytes.oneIn(4) ? bytes.below(4) : 0];
    texts.square = bytes.oneIn(4);
    blocks_.push_back(drawing_.addWell(bytes.point(), texts));
    ids_.push_back(blocks_.back());
}

void FuzzDrawing::addTank(ByteReader& bytes) {
    TankTexts texts;
    texts.system = kSystems[bytes.oneIn(4) ? bytes.below(4) : 0];
    const AcGePoint3d min = bytes.point();
    const AcGePoint3d max(min.x + 1.0 + bytes.below(4), min.y + 1.0 + bytes.below(4), min.z);
    blocks_.push_back(drawing_.addTank(min, max, texts));
    ids_.push_back(blocks_.back());
}

/// Any text under any of the names that matter.
void FuzzDrawing::setOddText(ByteReader& bytes) {
    constexpr const wchar_t* keys[] = {L"管道系统", L"管径",     L"起点标高", L"终点标高",
                                       L"水流方向", L"井的直径", L"管井系统", L"池体系统",
                                       L"池体",     L"坡度",     L"管井编号", L"管材"};
    const AcDbObjectId id = ids_[static_cast<std::size_t>(bytes.byte()) % ids_.size()];
    const wchar_t* key = keys[bytes.below(12)];
    if (bytes.oneIn(8)) {
        drawing_.setApplicationAlone(id, key);
    } else {
        SetXdata(id, key, CString(bytes.text(24).c_str()));
    }
}

} // namespace fuzz
