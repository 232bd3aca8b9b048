#include "module/support/DrawingBuilder.h"

#include <filesystem>
#include <memory>
#include <stdexcept>

namespace module_tests {

namespace {

constexpr const char* kPipeSystemsFile = "SysCon/PipeLineSetting.Kdp";

constexpr const char* kPipeSystems = "# pipe systems\n"
                                     "1 = 污水\n"
                                     "1\\GroupType = 重力流\n"
                                     "1\\GroupFlag = W\n"
                                     "2 = 雨水\n"
                                     "2\\GroupType = 重力流\n"
                                     "2\\GroupFlag = Y\n"
                                     "3 = 给水\n"
                                     "3\\GroupType = 压力流\n"
                                     "3\\GroupFlag = J\n";

void require(bool condition, const char* what) {
    if (!condition) {
        throw std::runtime_error(what);
    }
}

} // namespace

DrawingBuilder::DrawingBuilder() {
    settings_ = {.dwgScale = 1.0, .drawScale = 1000.0, .pipeBreakDist = 0.1, .pipeCalLongType = 0};
    applySettings();
    writePipeSystems(kPipeSystems);
    siblings::setSystemPath(folder_.text());
    replaceDocument(host::newDocument());
}

DrawingBuilder::~DrawingBuilder() {
    close();
    siblings::clearDrawingSettings();
    siblings::setSystemPath("");
}

void DrawingBuilder::replaceDocument(AcApDocument* document) {
    close();
    document_ = document;
}

void DrawingBuilder::close() {
    if (document_ != nullptr) {
        host::closeDocument(document_);
        document_ = nullptr;
    }
}

void DrawingBuilder::startAnew() {
    tankCount_ = 0;
    replaceDocument(host::newDocument());
}

void DrawingBuilder::openDxf(const std::string& text) {
    const std::string name = "drawing" + std::to_string(++dxfCount_) + ".dxf";
    folder_.write(name, text);
    openDxfFile((folder_.path() / name).string());
}

void DrawingBuilder::openDxfFile(const std::string& path) {
    std::string error;
    AcApDocument* document = host::openDocument(path, error);
    require(document != nullptr, error.c_str());
    replaceDocument(document);
}

void DrawingBuilder::applySettings() {
    siblings::setDrawingSettings(settings_);
}

void DrawingBuilder::setDwgScale(double value) {
    settings_.dwgScale = value;
    applySettings();
}

void DrawingBuilder::setDrawScale(double value) {
    settings_.drawScale = value;
    applySettings();
}

void DrawingBuilder::setBreakDist(double value) {
    settings_.pipeBreakDist = value;
    applySettings();
}

void DrawingBuilder::setLengthMode(int value) {
    settings_.pipeCalLongType = value;
    applySettings();
}

void DrawingBuilder::writePipeSystems(const std::string& text) {
    folder_.write(kPipeSystemsFile, text);
}

void DrawingBuilder::removePipeSystems() {
    std::filesystem::remove(folder_.path() / kPipeSystemsFile);
}

AcDbDatabase& DrawingBuilder::database() const {
    require(document_ != nullptr, "the drawing was closed");
    return *document_->database();
}

AcDbObjectId DrawingBuilder::addEntity(AcDbEntity* entity, std::initializer_list<KeyText> texts) {
    const AcDbObjectId id = PutEntityToDatabase(entity);
    require(!id.isNull(), "the host did not take the entity");
    for (const KeyText& text : texts) {
        setText(id, text.key, text.text);
    }
    return id;
}

void DrawingBuilder::setText(AcDbObjectId id, const wchar_t* key, const wchar_t* text) {
    if (text != nullptr) {
        require(SetXdata(id, key, CString(text)) != 0, "the host did not take the text");
    }
}

void DrawingBuilder::setApplicationAlone(AcDbObjectId id, const wchar_t* key) {
    require(database().registerApplication(key) == Acad::eOk, "no application");
    AcDbObject* object = nullptr;
    require(acdbOpenAcDbObject(object, id, AcDb::kForWrite) == Acad::eOk, "no such entity");
    constexpr int applicationName = 1001;
    constexpr int number = 1070;
    resbuf* chain = acutBuildList(applicationName, key, number, 1, 0);
    const Acad::ErrorStatus status = object->setXData(chain);
    acutRelRb(chain);
    object->close();
    require(status == Acad::eOk, "the host did not take the application");
}

void DrawingBuilder::erase(AcDbObjectId id) {
    require(EraseObject(id) != 0, "nothing to erase");
}

void DrawingBuilder::writeTexts(AcDbObjectId id, const PipeTexts& texts) {
    setText(id, L"管道系统", texts.system);
    setText(id, L"管径", texts.diameter);
    setText(id, L"水流方向", texts.flow);
    setText(id, L"坡度", texts.slope);
    setText(id, L"起点标高", texts.startElevation);
    setText(id, L"终点标高", texts.endElevation);
    setText(id, L"管材", texts.material);
}

AcDbObjectId DrawingBuilder::addCurve(AcDbEntity* curve, const PipeTexts& texts) {
    const AcDbObjectId id = addEntity(curve);
    writeTexts(id, texts);
    return id;
}

AcDbObjectId DrawingBuilder::addPipe(const AcGePoint3d& from, const AcGePoint3d& to,
                                     const PipeTexts& texts) {
    return addCurve(new AcDbLine(from, to), texts);
}

AcDbObjectId DrawingBuilder::addArcPipe(const AcGePoint3d& from, const AcGePoint3d& to,
                                        double bulge, const PipeTexts& texts) {
    return addPolyline({{from.x, from.y, bulge}, {to.x, to.y}}, texts, false, from.z);
}

AcDbObjectId DrawingBuilder::addPolyline(std::initializer_list<Vertex> vertices,
                                         const PipeTexts& texts, bool closed, double elevation) {
    auto polyline = std::make_unique<AcDbPolyline>();
    for (const Vertex& vertex : vertices) {
        polyline->addVertexAt(polyline->numVerts(), AcGePoint2d(vertex.x, vertex.y), vertex.bulge);
    }
    polyline->setClosed(closed ? Adesk::kTrue : Adesk::kFalse);
    polyline->setElevation(elevation);
    return addCurve(polyline.release(), texts);
}

AcDbObjectId DrawingBuilder::findBlock(const wchar_t* name) const {
    AcDbBlockTable* table = nullptr;
    require(database().getBlockTable(table, AcDb::kForRead) == Acad::eOk, "no block table");
    AcDbObjectId id;
    table->getAt(name, id);
    table->close();
    return id;
}

AcDbObjectId DrawingBuilder::defineBlock(const wchar_t* name, const AcGePoint3d& min,
                                         const AcGePoint3d& max) {
    AcDbBlockTable* table = nullptr;
    require(database().getBlockTable(table, AcDb::kForWrite) == Acad::eOk, "no block table");
    auto* record = new AcDbBlockTableRecord;
    record->setName(name);
    AcDbObjectId id;
    require(table->add(id, record) == Acad::eOk, "the block is there already");
    table->close();
    // One diagonal has exactly the wanted box.
    auto* diagonal = new AcDbLine(min, max);
    require(record->appendAcDbEntity(diagonal) == Acad::eOk, "no geometry");
    diagonal->close();
    record->close();
    return id;
}

AcDbObjectId DrawingBuilder::defineLayer(const wchar_t* name) {
    AcDbLayerTable* table = nullptr;
    require(database().getLayerTable(table, AcDb::kForWrite) == Acad::eOk, "no layer table");
    auto* record = new AcDbLayerTableRecord;
    record->setName(name);
    AcDbObjectId id;
    require(table->add(id, record) == Acad::eOk, "the layer is there already");
    table->close();
    record->close();
    return id;
}

AcDbObjectId DrawingBuilder::addBlock(const AcGePoint3d& at, const wchar_t* name,
                                      std::initializer_list<KeyText> texts) {
    AcDbObjectId block = findBlock(name);
    if (block.isNull()) {
        block = defineBlock(name, {-0.5, -0.5, 0.0}, {0.5, 0.5, 0.0});
    }
    return addEntity(new AcDbBlockReference(at, block), texts);
}

AcDbObjectId DrawingBuilder::addWell(const AcGePoint3d& at, const WellTexts& texts) {
    return addBlock(
        at, texts.square ? L"VLT_WELL_04" : L"VLT_WELL_01",
        {{L"管井系统", texts.system}, {L"井的直径", texts.diameter}, {L"管井编号", texts.number}});
}

AcDbObjectId DrawingBuilder::addTank(const AcGePoint3d& min, const AcGePoint3d& max,
                                     const TankTexts& texts) {
    return addTankAt(min + (max - min) * 0.5, min, max, texts);
}

AcDbObjectId DrawingBuilder::addTankAt(const AcGePoint3d& at, const AcGePoint3d& min,
                                       const AcGePoint3d& max, const TankTexts& texts) {
    const std::wstring name = L"TANK_" + std::to_wstring(++tankCount_);
    const AcGeVector3d toBase = AcGePoint3d() - at;
    defineBlock(name.c_str(), min + toBase, max + toBase);
    return addBlock(at, name.c_str(),
                    {{L"池体", texts.tank}, {L"池体系统", texts.system}, {L"长度", texts.length}});
}

AcDbObjectId DrawingBuilder::addText(const AcGePoint3d& at, const wchar_t* text, double height,
                                     double rotation) {
    return addEntity(new AcDbText(at, text, AcDbObjectId::kNull, height, rotation));
}

AcDbObjectId DrawingBuilder::byHandle(const wchar_t* handle) const {
    AcDbObjectId id;
    database().getAcDbObjectId(id, false, AcDbHandle(handle));
    return id;
}

} // namespace module_tests
