// A DXF file, text or binary: it is refused with one line, or it is a drawing all of whose objects
// can be asked anything, that can be saved, and that reads back as it was saved.

#include "Demand.h"
#include "EmbeddedHost.h"

#include "dxf/LoadDxf.h"
#include "dxf/SaveDxf.h"

#include <cstdint>
#include <memory>
#include <string>

namespace {

using fuzz::demand;

void askCurve(const AcDbCurve& curve) {
    AcGePoint3d point;
    AcGeVector3d vector;
    double number = 0.0;
    if (curve.getStartPoint(point) == Acad::eOk) {
        curve.getParamAtPoint(point, number);
        curve.getDistAtPoint(point, number);
    }
    curve.getEndPoint(point);
    if (curve.getEndParam(number) == Acad::eOk) {
        curve.getFirstDeriv(number / 2.0, vector);
        curve.getDistAtParam(number, number);
        curve.getPointAtDist(number / 2.0, point);
    }
    curve.getClosestPointTo(AcGePoint3d(1.0, 2.0, 0.0), point);
}

void askEntity(const AcDbObjectId& id) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenAcDbEntity(entity, id, AcDb::kForRead) != Acad::eOk) {
        return;
    }
    AcDbExtents extents;
    entity->getGeomExtents(extents);
    acutRelRb(entity->xData(nullptr));
    if (const auto* curve = AcDbCurve::cast(entity)) {
        askCurve(*curve);
    }
    entity->close();
}

void askBlocks(const AcDbDatabase& database) {
    AcDbBlockTable* table = nullptr;
    demand(database.getBlockTable(table, AcDb::kForRead) == Acad::eOk, "there is a block table");
    AcDbSymbolTableIterator* blocks = nullptr;
    table->newIterator(blocks);
    for (; !blocks->done(); blocks->step()) {
        AcDbObjectId block;
        blocks->getRecordId(block);
        const auto* const record = host_db::peek<AcDbBlockTableRecord>(block);
        demand(record != nullptr, "a listed block is there");
        for (const AcDbObjectId& entity : record->entityIds()) {
            askEntity(entity);
        }
    }
    delete blocks;
    table->close();
}

std::string saved(const AcDbDatabase& database) {
    std::string bytes;
    std::string error;
    demand(host_dxf::drawingBytes(database, "saved.dxf", bytes, error), "what loads can be saved");
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::string error;
    const std::unique_ptr<AcDbDatabase> database =
        host_dxf::loadDrawingFromBytes(bytes, "fuzz.dxf", error);
    if (database == nullptr) {
        demand(!error.empty() && error.find('\n') == std::string::npos, "a refusal is one line");
        return 0;
    }
    askBlocks(*database);
    const std::string first = saved(*database);
    demand(first == bytes, "a drawing that nobody changed keeps its bytes");
    return 0;
}
