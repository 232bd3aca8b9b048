#include "editor/ApplyCut.h"

#include "database/AcDbArc.h"
#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbLine.h"
#include "database/AcDbPolyline.h"
#include "database/OpenObject.h"
#include "database/SymbolTables.h"

namespace host_ed {
namespace {

void take(AcDbLine& line, const AcDbLine& piece) {
    line.setStartPoint(piece.startPoint());
    line.setEndPoint(piece.endPoint());
}

void take(AcDbArc& arc, const AcDbArc& piece) {
    arc.setStartAngle(piece.startAngle());
    arc.setEndAngle(piece.endAngle());
}

void take(AcDbPolyline& polyline, const AcDbPolyline& piece) {
    polyline.reset(Adesk::kFalse, 0);
    polyline.setClosed(piece.isClosed());
    for (unsigned int i = 0; i < piece.numVerts(); ++i) {
        AcGePoint2d point;
        double bulge = 0.0;
        double startWidth = 0.0;
        double endWidth = 0.0;
        piece.getPointAt(i, point);
        piece.getBulgeAt(i, bulge);
        piece.getWidthsAt(i, startWidth, endWidth);
        polyline.addVertexAt(i, point, bulge, startWidth, endWidth);
    }
}

/// Gives the curve, open for write, the piece's shape. False when it is of another class.
bool reshape(AcDbCurve& curve, const AcDbCurve& piece) {
    if (curve.isA() != piece.isA()) {
        return false;
    }
    if (auto* line = AcDbLine::cast(&curve)) {
        take(*line, *AcDbLine::cast(&piece));
    } else if (auto* arc = AcDbArc::cast(&curve)) {
        take(*arc, *AcDbArc::cast(&piece));
    } else {
        take(*AcDbPolyline::cast(&curve), *AcDbPolyline::cast(&piece));
    }
    return true;
}

/// Puts the piece into the place of a curve, open for write, of another class.
void replace(AcDbCurve& curve, std::unique_ptr<AcDbCurve> piece) {
    curve.handOverTo(piece.get());
    piece.release()->close();
    delete &curve;
}

bool append(AcDbObjectId space, std::unique_ptr<AcDbCurve> piece) {
    AcDbBlockTableRecord* record = nullptr;
    if (acdbOpenObject(record, space, AcDb::kForWrite) != Acad::eOk) {
        return false;
    }
    const bool added = record->appendAcDbEntity(piece.get()) == Acad::eOk;
    if (added) {
        piece.release()->close();
    }
    record->close();
    return added;
}

} // namespace

bool isOnLockedLayer(const AcDbEntity& entity) {
    const auto* layer = host_db::peek<AcDbLayerTableRecord>(entity.layerId());
    return layer != nullptr && layer->isLocked();
}

bool applyCut(AcDbObjectId id, std::vector<std::unique_ptr<AcDbCurve>> pieces) {
    AcDbCurve* curve = nullptr;
    if (acdbOpenObject(curve, id, AcDb::kForWrite) != Acad::eOk) {
        return false;
    }
    const AcDbObjectId space = curve->ownerId();
    if (isOnLockedLayer(*curve)) {
        curve->close();
        return false;
    }
    if (reshape(*curve, *pieces.front())) {
        curve->close();
    } else {
        replace(*curve, std::move(pieces.front()));
    }
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        if (!append(space, std::move(pieces[i]))) {
            return false;
        }
    }
    return true;
}

} // namespace host_ed
