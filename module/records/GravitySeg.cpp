#include "records/GravitySeg.h"

#include "records/NodeHalfSize.h"
#include "records/XdataKeys.h"

namespace {

/// Settings of the pipe length calculation that this module knows.
enum PipeLengthType { kBetweenRims = 0, kBetweenTankWalls = 1 };

/// Half of a tank's length as it stands in its text, without the drawing scale; 0.0 for a well.
double TankDeduction(const AcDbObjectId& entity, CString& tankSystem) {
    if (ReadXdata(entity, xdata::kTankSystem, tankSystem) == 0 || tankSystem.IsEmpty()) {
        return 0.0;
    }
    return NumberPrefix(XdataText(entity, xdata::kTankLength)) * 0.5;
}

} // namespace

// extraValue4 is left to the sibling modules that own it, so reading it here would be their error.
GravitySeg::GravitySeg() {} // NOLINT(modernize-use-equals-default)

GravitySeg::GravitySeg(GravitySeg& other) {
    *this = other;
}

GravitySeg& GravitySeg::operator=(GravitySeg& other) { // NOLINT(bugprone-unhandled-self-assignment)
    pipeIds = other.pipeIds;
    startWell = other.startWell;
    endWell = other.endWell;
    startEntity = other.startEntity;
    endEntity = other.endEntity;
    startPoint = other.startPoint;
    endPoint = other.endPoint;
    startElevation = other.startElevation;
    endElevation = other.endElevation;
    slope = other.slope;
    diameter = other.diameter;
    flowText = other.flowText;
    material = other.material;
    systemName = other.systemName;
    extraValue1 = other.extraValue1;
    extraValue2 = other.extraValue2;
    extraValue3 = other.extraValue3;
    extraValue4 = other.extraValue4;
    extraValue5 = other.extraValue5;
    flowReversed = other.flowReversed;
    length = other.length;
    annotatePoint = other.annotatePoint;
    annotateVector = other.annotateVector;
    return *this;
}

GravitySeg::~GravitySeg() = default;

double GravitySeg::GetLength() {
    const double distance = startPoint.distanceTo(endPoint);
    switch (GetPipeCalLongType()) {
    case kBetweenTankWalls: {
        CString tankSystem;
        const double startDeduction = TankDeduction(startEntity, tankSystem);
        const double endDeduction = TankDeduction(endEntity, tankSystem);
        length = distance - startDeduction - endDeduction;
        break;
    }
    case kBetweenRims:
        length = distance - tkvlt::NodeHalfSize(startEntity) - tkvlt::NodeHalfSize(endEntity);
        break;
    default:
        length = 0.0;
        break;
    }
    return length;
}
