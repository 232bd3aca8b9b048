#include "dxf/EntityLoader.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDb3dPolyline.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbUnknownEntity.h"
#include "dxf/CurveFactory.h"
#include "dxf/EntityGeometry.h"
#include "dxf/LoadContext.h"
#include "dxf/TextFactory.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace host_dxf {

namespace {

constexpr std::int64_t closedFlag = 1;
constexpr std::int64_t curveFitFlag = 2;
constexpr std::int64_t spatialFlag = 8;
constexpr std::int64_t meshFlags = 16 | 64;
/// Group 75 of a splined polyline.
constexpr std::int64_t quadraticSmoothing = 5;
constexpr std::int64_t cubicSmoothing = 6;

AcDb::Poly2dType flatType(const DxfRecord& record) {
    const std::int64_t smoothing = record.integer(75, 0);
    if (smoothing == quadraticSmoothing) {
        return AcDb::k2dQuadSplinePoly;
    }
    if (smoothing == cubicSmoothing) {
        return AcDb::k2dCubicSplinePoly;
    }
    return (record.integer(70, 0) & curveFitFlag) != 0 ? AcDb::k2dFitCurvePoly
                                                       : AcDb::k2dSimplePoly;
}

AcDb::Poly3dType spatialType(const DxfRecord& record) {
    const std::int64_t smoothing = record.integer(75, 0);
    if (smoothing == quadraticSmoothing) {
        return AcDb::k3dQuadSplinePoly;
    }
    return smoothing == cubicSmoothing ? AcDb::k3dCubicSplinePoly : AcDb::k3dSimplePoly;
}

int vertexFlags(const DxfRecord& vertex) {
    return static_cast<int>(vertex.integer(70, 0));
}

/// The points that outline an entity which is not modelled; empty where they are not known.
std::vector<AcGePoint3d> outlineOf(const DxfRecord& record) {
    std::vector<AcGePoint3d> points;
    if (record.is("POINT")) {
        points.push_back(pointOf(record, 10));
    } else if (record.is("3DFACE") || record.is("SOLID") || record.is("TRACE")) {
        const AcGeVector3d normal = extrusionOf(record);
        const bool world = record.is("3DFACE");
        for (int code = 10; code <= 13 && record.find(code) != nullptr; ++code) {
            const AcGePoint3d corner = pointOf(record, code);
            points.push_back(world ? corner : worldPoint(corner, normal));
        }
    }
    return points;
}

} // namespace

void EntityLoader::readRecord() {
    constexpr std::array<std::string_view, 9> misplaced = {
        "VERTEX", "SEQEND", "BLOCK", "ENDBLK", "TABLE", "ENDTAB", "SECTION", "ENDSEC", "EOF"};
    for (const std::string_view type : misplaced) {
        if (context_.reader().atRecord(type)) {
            context_.reader().failExpecting("an entity");
        }
    }
    context_.reader().read(record_);
}

void EntityLoader::addTo(AcDbObjectId block) {
    if (record_.is("POLYLINE")) {
        addPolyline(block);
        return;
    }
    if (record_.is("INSERT")) {
        addReference(block);
        return;
    }
    std::unique_ptr<AcDbEntity> entity = makeCurve(record_);
    if (entity == nullptr) {
        entity = makeText(context_, record_);
    }
    if (entity == nullptr) {
        entity = makeUnknown();
    }
    const AcDbObjectId id =
        context_.builder().addEntity(block, std::move(entity), context_.entityHeader(record_));
    LoadContext::requireAdded(id, record_);
}

std::unique_ptr<AcDbEntity> EntityLoader::makeUnknown() {
    auto entity = std::make_unique<AcDbUnknownEntity>(context_.decodeText(record_.type));
    entity->setOutline(outlineOf(record_));
    return entity;
}

void EntityLoader::requireSequenceEnd(const DxfRecord& head) {
    if (!context_.reader().atRecord("SEQEND")) {
        const std::string where =
            head.position.line == 0 ? "" : " of line " + std::to_string(head.position.line);
        context_.reader().failExpecting("the SEQEND of the " + std::string(head.type) + where);
    }
    context_.reader().read(part_);
    context_.claimHandle(part_);
}

void EntityLoader::addPolyline(AcDbObjectId block) {
    const std::int64_t flags = record_.integer(70, 0);
    std::unique_ptr<AcDbEntity> polyline = (flags & meshFlags) != 0     ? meshPolyline()
                                           : (flags & spatialFlag) != 0 ? spatialPolyline()
                                                                        : flatPolyline();
    requireSequenceEnd(record_);
    record_.range.end = part_.range.end;
    const AcDbObjectId id =
        context_.builder().addEntity(block, std::move(polyline), context_.entityHeader(record_));
    LoadContext::requireAdded(id, record_);
}

template<typename Polyline, typename AddVertex>
std::unique_ptr<Polyline> EntityLoader::readVertices(std::unique_ptr<Polyline> polyline,
                                                     AddVertex addVertex) {
    while (context_.reader().atRecord("VERTEX")) {
        context_.reader().read(part_);
        context_.claimHandle(part_);
        addVertex(*polyline, part_);
    }
    return polyline;
}

std::unique_ptr<AcDbEntity> EntityLoader::flatPolyline() {
    auto polyline = std::make_unique<AcDb2dPolyline>();
    polyline->setPolyType(flatType(record_));
    polyline->setElevation(record_.real(30, 0.0));
    polyline->setNormal(extrusionOf(record_));
    polyline->setClosed((record_.integer(70, 0) & closedFlag) != 0);
    const double startWidth = record_.real(40, 0.0);
    const double endWidth = record_.real(41, 0.0);
    return readVertices(std::move(polyline), [&](AcDb2dPolyline& target, const DxfRecord& vertex) {
        target.appendVertex({pointOf(vertex, 10), vertex.real(42, 0.0), vertex.real(40, startWidth),
                             vertex.real(41, endWidth), vertexFlags(vertex),
                             LoadContext::ownHandle(vertex)});
    });
}

std::unique_ptr<AcDbEntity> EntityLoader::spatialPolyline() {
    auto polyline = std::make_unique<AcDb3dPolyline>();
    polyline->setPolyType(spatialType(record_));
    polyline->setClosed((record_.integer(70, 0) & closedFlag) != 0);
    return readVertices(std::move(polyline), [](AcDb3dPolyline& target, const DxfRecord& vertex) {
        target.appendVertex(
            {pointOf(vertex, 10), vertexFlags(vertex), LoadContext::ownHandle(vertex)});
    });
}

std::unique_ptr<AcDbEntity> EntityLoader::meshPolyline() {
    constexpr int faceFlags = 128;
    constexpr int placeFlag = 64;
    std::vector<AcGePoint3d> points;
    auto mesh = readVertices(std::make_unique<AcDbUnknownEntity>(L"POLYLINE"),
                             [&points](AcDbUnknownEntity&, const DxfRecord& vertex) {
                                 // A face of a polyface mesh is a vertex record too, but has no
                                 // place.
                                 if ((vertexFlags(vertex) & (faceFlags | placeFlag)) != faceFlags) {
                                     points.push_back(pointOf(vertex, 10));
                                 }
                             });
    mesh->setOutline(std::move(points));
    return mesh;
}

void EntityLoader::addReference(AcDbObjectId block) {
    const AcDbObjectId id =
        context_.builder().addEntity(block, makeReference(), context_.entityHeader(record_));
    LoadContext::requireAdded(id, record_);
    addAttributes(id);
}

std::unique_ptr<AcDbBlockReference> EntityLoader::makeReference() {
    const AcGeVector3d normal = extrusionOf(record_);
    auto reference = std::make_unique<AcDbBlockReference>(worldPoint(pointOf(record_, 10), normal),
                                                          context_.block(record_.text(2)));
    reference->setNormal(normal);
    reference->setScaleFactors(
        AcGeScale3d(record_.real(41, 1.0), record_.real(42, 1.0), record_.real(43, 1.0)));
    reference->setRotation(angleOf(record_, 50));
    const std::int64_t columns = record_.integer(70, 1);
    const std::int64_t rows = record_.integer(71, 1);
    if (columns > 1 || rows > 1) {
        constexpr std::int64_t greatestCount = 32767;
        reference->setGrid(static_cast<int>(std::min(columns, greatestCount)),
                           static_cast<int>(std::min(rows, greatestCount)), record_.real(44, 0.0),
                           record_.real(45, 0.0));
    }
    return reference;
}

void EntityLoader::addAttributes(AcDbObjectId reference) {
    constexpr int attributesFollowCode = 66;
    RecordReader& reader = context_.reader();
    const bool announced = record_.integer(attributesFollowCode, 0) != 0;
    bool any = false;
    while (reader.atRecord("ATTRIB")) {
        reader.read(part_);
        const AcDbObjectId id = context_.builder().addAttribute(
            reference, makeAttribute(context_, part_), context_.entityHeader(part_));
        LoadContext::requireAdded(id, part_);
        any = true;
    }
    if (any || (announced && reader.atRecord("SEQEND"))) {
        requireSequenceEnd(record_);
        context_.builder().setAttributesEnd(reference, part_.range);
    }
}

} // namespace host_dxf
