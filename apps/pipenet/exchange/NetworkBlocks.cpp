#include "exchange/NetworkBlocks.h"

#include "exchange/ExchangeMessages.h"
#include "Failure.h"

#include <memory>
#include <vector>

namespace pipenet {

namespace {

using Shapes = std::vector<std::unique_ptr<AcDbEntity>>;

constexpr double kHalf = 0.5;

AcDbObjectId define(AcDbDatabase& database, const wchar_t* name, Shapes shapes) {
    AcDbBlockTable* table = nullptr;
    requireDrawn(database.getBlockTable(table, AcDb::kForWrite) == Acad::eOk, "the block table");
    auto record = std::make_unique<AcDbBlockTableRecord>();
    record->setName(name);
    AcDbObjectId id;
    const bool added = table->add(id, record.get()) == Acad::eOk;
    table->close();
    requireDrawn(added, "a block");
    AcDbBlockTableRecord* block = record.release();
    for (std::unique_ptr<AcDbEntity>& shape : shapes) {
        if (block->appendAcDbEntity(shape.get()) == Acad::eOk) {
            shape.release()->close();
        }
    }
    block->close();
    return id;
}

std::unique_ptr<AcDbEntity> circle() {
    return std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d(0.0, 0.0, 1.0), kHalf);
}

std::unique_ptr<AcDbEntity> square() {
    auto line = std::make_unique<AcDbPolyline>();
    for (const auto& [x, y] :
         {std::pair{-kHalf, -kHalf}, {kHalf, -kHalf}, {kHalf, kHalf}, {-kHalf, kHalf}}) {
        line->addVertexAt(line->numVerts(), AcGePoint2d(x, y));
    }
    line->setClosed(Adesk::kTrue);
    return line;
}

std::unique_ptr<AcDbEntity> stroke(double rise) {
    return std::make_unique<AcDbLine>(AcGePoint3d(-0.3, -rise, 0.0), AcGePoint3d(0.3, rise, 0.0));
}

template<class... Shape>
Shapes shapesOf(Shape... shape) {
    Shapes shapes;
    (shapes.push_back(std::move(shape)), ...);
    return shapes;
}

} // namespace

void requireDrawn(bool done, const char* what) {
    if (!done) {
        throw Failure(messages::kModel, "the new drawing",
                      textOf({0, "the host does not take {}"}, what));
    }
}

NetworkBlocks defineNetworkBlocks(AcDbDatabase& database) {
    NetworkBlocks blocks;
    blocks.well = define(database, L"VLT_WELL_01", shapesOf(circle()));
    blocks.valve = define(database, L"VLT_WELL_05", shapesOf(circle(), stroke(0.3), stroke(-0.3)));
    blocks.tank = define(database, L"VLT_TANK_01", shapesOf(square()));
    return blocks;
}

void defineLayer(AcDbDatabase& database, const CString& name, int colour) {
    AcDbLayerTable* table = nullptr;
    requireDrawn(database.getLayerTable(table, AcDb::kForWrite) == Acad::eOk, "the layer table");
    auto record = std::make_unique<AcDbLayerTableRecord>();
    record->setName(name);
    record->setColorIndex(static_cast<Adesk::UInt16>(colour));
    if (!table->has(name) && table->add(record.get()) == Acad::eOk) {
        record.release()->close();
    }
    table->close();
}

} // namespace pipenet
