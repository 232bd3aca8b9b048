#include "exchange/ModelDrawing.h"

#include "exchange/ExchangeMessages.h"
#include "exchange/ExchangeText.h"
#include "exchange/MapScale.h"
#include "exchange/NetworkBlocks.h"
#include "exchange/OwnTexts.h"
#include "Failure.h"
#include "OpenedObject.h"
#include "records/XdataKeys.h"
#include "Siblings.h"

#include <algorithm>
#include <memory>

namespace pipenet {

namespace {

constexpr int kPipeColour = 4;
constexpr int kTankColour = 6;
constexpr int kTextColour = 7;
constexpr double kTextHeight = 1.2;    ///< metres
constexpr double kValveDiameter = 0.8; ///< metres
constexpr wchar_t kTankLayer[] = L"池体";
constexpr wchar_t kTextLayer[] = L"文字";

CString wide(const std::string& text) {
    return CString(host_text::fromUtf8(text).c_str());
}

/// A height or a slope as a designer writes it: at most so many decimals, no zeros behind.
CString decimalText(double value, int decimals) {
    return wide(decimal(value, decimals));
}

AcGePoint3d flat(const PlanPoint& point) {
    return {point.x, point.y, 0.0};
}

/// The document being drawn; closed when this ends.
class NewDrawing {
public:
    NewDrawing() : document_(host::newDocument()) { requireDrawn(document_, "a new document"); }
    NewDrawing(const NewDrawing&) = delete;
    NewDrawing& operator=(const NewDrawing&) = delete;
    ~NewDrawing() { host::closeDocument(document_); }

    AcDbDatabase& database() { return *document_->database(); }
    void save(const std::string& path) {
        std::string error;
        if (!host::saveDocument(document_, path, error)) {
            throw Failure(messages::kUnsaved, error);
        }
    }

private:
    AcApDocument* document_;
};

/// Takes the entity into the drawing, on a layer.
AcDbObjectId put(std::unique_ptr<AcDbEntity> entity, const CString& layer) {
    const AcDbObjectId id = PutEntityToDatabase(entity.get());
    requireDrawn(!id.isNull(), "an entity");
    static_cast<void>(entity.release()); // the drawing has it now
    const siblings::OpenedObject<AcDbEntity> opened(id, AcDb::kForWrite);
    requireDrawn(opened && opened->setLayer(layer) == Acad::eOk, "a layer");
    return id;
}

void write(const AcDbObjectId& id, const wchar_t* key, const CString& text) {
    requireDrawn(SetXdata(id, key, text) != 0, "a text, which may be too long");
}

class ModelPainter {
public:
    ModelPainter(const PipeModel& model, const ModelLayout& layout, const CString& system,
                 const LayoutUnits& units)
        : model_(model), layout_(layout), system_(system), units_(units),
          pipeLayer_(system + L"管"), wellLayer_(system + L"井") {}

    DrawnCounts run(AcDbDatabase& database) {
        blocks_ = defineNetworkBlocks(database);
        defineLayer(database, pipeLayer_, kPipeColour);
        defineLayer(database, wellLayer_, kPipeColour);
        defineLayer(database, kTankLayer, kTankColour);
        defineLayer(database, kTextLayer, kTextColour);
        for (std::size_t i = 0; i < model_.nodes.size(); ++i) {
            drawNode(model_.nodes[i], layout_.nodes[i]);
        }
        for (std::size_t i = 0; i < model_.links.size(); ++i) {
            if (!layout_.links[i].points.empty()) {
                drawLink(model_.links[i], layout_.links[i]);
            }
        }
        return counts_;
    }

private:
    AcDbObjectId drawBlock(const AcDbObjectId& block, const PlanPoint& at, double length,
                           double width, const CString& layer);
    void drawNode(const ModelNode& node, const DrawnNode& shape);
    void drawTank(const ModelNode& node, const DrawnNode& shape);
    void drawWell(const ModelNode& node, const DrawnNode& shape);
    void writeHeights(const AcDbObjectId& id, const ModelNode& node);
    void drawLink(const ModelLink& link, const DrawnLink& shape);
    void drawValve(const ModelLink& link, const DrawnLink& shape);
    void writePipe(const AcDbObjectId& id, const ModelLink& link, const DrawnLink& shape);

    const PipeModel& model_;
    const ModelLayout& layout_;
    CString system_;
    LayoutUnits units_;
    CString pipeLayer_;
    CString wellLayer_;
    NetworkBlocks blocks_;
    DrawnCounts counts_;
};

AcDbObjectId ModelPainter::drawBlock(const AcDbObjectId& block, const PlanPoint& at, double length,
                                     double width, const CString& layer) {
    auto reference = std::make_unique<AcDbBlockReference>(flat(at), block);
    reference->setScaleFactors(AcGeScale3d(length, width, 1.0));
    return put(std::move(reference), layer);
}

void ModelPainter::drawNode(const ModelNode& node, const DrawnNode& shape) {
    if (shape.isTank) {
        drawTank(node, shape);
    } else {
        drawWell(node, shape);
    }
    const double beside = shape.radius + 0.2 * units_.perMetre;
    put(std::make_unique<AcDbText>(flat({shape.at.x + beside, shape.at.y + beside}),
                                   wide(node.name), AcDbObjectId::kNull,
                                   kTextHeight * units_.perMetre),
        kTextLayer);
}

void ModelPainter::drawTank(const ModelNode& node, const DrawnNode& shape) {
    const AcDbObjectId id = drawBlock(blocks_.tank, shape.at, 2.0 * shape.halfLength,
                                      2.0 * shape.halfWidth, kTankLayer);
    write(id, xdata::kTank, wide(node.name));
    write(id, xdata::kTankSystem, system_);
    write(id, xdata::kTankLength, decimalText(2000.0 * shape.halfLength / units_.perMetre, 0));
    if (node.kind == ModelNodeKind::reservoir) {
        write(id, own_texts::kWaterLevel, decimalText(node.bottom, 3));
    } else {
        writeHeights(id, node);
    }
    ++counts_.tanks;
}

void ModelPainter::drawWell(const ModelNode& node, const DrawnNode& shape) {
    const double diameter = 2.0 * shape.radius;
    const AcDbObjectId id = drawBlock(blocks_.well, shape.at, diameter, diameter, wellLayer_);
    write(id, xdata::kWellSystem, system_);
    write(id, xdata::kWellNumber, wide(node.name));
    write(id, xdata::kWellDiameter, decimalText(diameter / units_.perMetre, 3));
    writeHeights(id, node);
    ++counts_.wells;
}

void ModelPainter::writeHeights(const AcDbObjectId& id, const ModelNode& node) {
    write(id, own_texts::kBottom, decimalText(node.bottom, 3));
    if (node.ground) {
        write(id, own_texts::kGround, decimalText(*node.ground, 3));
    }
}

void ModelPainter::drawLink(const ModelLink& link, const DrawnLink& shape) {
    const std::vector<PlanPoint>& points = shape.points;
    std::unique_ptr<AcDbEntity> entity;
    if (points.size() == 2) {
        entity = std::make_unique<AcDbLine>(flat(points[0]), flat(points[1]));
    } else {
        auto polyline = std::make_unique<AcDbPolyline>();
        for (const PlanPoint& point : points) {
            polyline->addVertexAt(polyline->numVerts(), AcGePoint2d(point.x, point.y));
        }
        entity = std::move(polyline);
    }
    writePipe(put(std::move(entity), pipeLayer_), link, shape);
    ++counts_.pipes;
    if (link.device == ModelDevice::valve) {
        drawValve(link, shape);
    }
}

/// A valve stands in the middle of its pipe, where the search finds it on the pipe's chord.
void ModelPainter::drawValve(const ModelLink& link, const DrawnLink& shape) {
    const PlanPoint& a = shape.points.front();
    const PlanPoint& b = shape.points.back();
    const double size = std::min(kValveDiameter * units_.perMetre, distance(a, b) / 2.0);
    const AcDbObjectId id =
        drawBlock(blocks_.valve, {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0}, size, size, wellLayer_);
    write(id, xdata::kWellSystem, system_);
    write(id, xdata::kWellNumber, wide(link.name));
    write(id, xdata::kWellDiameter, decimalText(size / units_.perMetre, 3));
    ++counts_.wells;
}

void ModelPainter::writePipe(const AcDbObjectId& id, const ModelLink& link,
                             const DrawnLink& shape) {
    const double drawn = wayOf(shape.points) / units_.perMetre;
    const double length = link.length.value_or(drawn);
    const double first = shape.isTurned ? link.endElevation : link.startElevation;
    const double last = shape.isTurned ? link.startElevation : link.endElevation;
    write(id, xdata::kPipeSystem, system_);
    write(id, xdata::kDiameter, wide(std::to_string(link.diameter)));
    write(id, xdata::kMaterial, wide(link.material));
    write(id, xdata::kSlope, decimalText((link.startElevation - link.endElevation) / length, 6));
    write(id, xdata::kStartElevation, decimalText(first, 3));
    write(id, xdata::kEndElevation, decimalText(last, 3));
    write(id, xdata::kFlow, shape.isTurned ? xdata::kEndToStart : xdata::kStartToEnd);
    write(id, own_texts::kLinkName, wide(link.name));
    if (link.length) {
        write(id, own_texts::kLinkLength, wide(fmt::format("{}/{:.3f}", length, drawn)));
    }
    if (link.device != ModelDevice::none) {
        write(id, own_texts::kDevice,
              link.device == ModelDevice::valve ? own_texts::kValve : own_texts::kPump);
    }
}

} // namespace

DrawnCounts writeModelDrawing(const PipeModel& model, const ModelLayout& layout,
                              const CString& system, const LayoutUnits& units,
                              const std::string& path) {
    NewDrawing drawing;
    const DrawnCounts counts = ModelPainter(model, layout, system, units).run(drawing.database());
    drawing.save(path);
    return counts;
}

} // namespace pipenet
