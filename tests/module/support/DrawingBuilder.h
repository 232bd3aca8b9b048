#pragma once

#include "EmbeddedHost.h"
#include "Siblings.h"
#include "siblings/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace module_tests {

inline constexpr wchar_t kSewer[] = L"污水";  ///< gravity, flag W
inline constexpr wchar_t kStorm[] = L"雨水";  ///< gravity, flag Y
inline constexpr wchar_t kSupply[] = L"给水"; ///< pressure, flag J

/// The name and the text of one extended datum.
struct KeyText {
    const wchar_t* key;
    const wchar_t* text;
};

/// Texts of a pipe, named after their keys; what is null is not written.
struct PipeTexts {
    const wchar_t* system = kSewer;          ///< 管道系统
    const wchar_t* diameter = nullptr;       ///< 管径
    const wchar_t* flow = nullptr;           ///< 水流方向
    const wchar_t* slope = nullptr;          ///< 坡度
    const wchar_t* startElevation = nullptr; ///< 起点标高
    const wchar_t* endElevation = nullptr;   ///< 终点标高
    const wchar_t* material = nullptr;       ///< 管材
};

struct WellTexts {
    const wchar_t* diameter = L"1";  ///< 井的直径, metres
    const wchar_t* number = nullptr; ///< 管井编号
    const wchar_t* system = kSewer;  ///< 管井系统
    bool square = false;             ///< a block named VLT_WELL_04 rather than VLT_WELL_01
};

struct TankTexts {
    const wchar_t* tank = L"1";      ///< 池体
    const wchar_t* system = kSewer;  ///< 池体系统
    const wchar_t* length = nullptr; ///< 长度
};

/// A drawing made in memory, entity by entity, with a settings folder of its own.
///
/// While it lives it has the process's current document, system path and drawing settings to
/// itself; its end closes the document and takes the settings away. Defaults: drawing scale 1, draw
/// scale 1000 (one drawing unit is one metre), break distance 0.1, length mode 0, and the three
/// pipe systems above. Entities stand in the drawing in the order of the calls, in model space.
class DrawingBuilder {
public:
    DrawingBuilder();
    DrawingBuilder(const DrawingBuilder&) = delete;
    DrawingBuilder& operator=(const DrawingBuilder&) = delete;
    ~DrawingBuilder();

    /// Replaces the drawing by an empty one; the settings stay.
    void startAnew();
    /// Replaces the drawing by one read from DXF text; throws with the host's reason on failure.
    void openDxf(const std::string& text);
    /// Replaces the drawing by that of a DXF file.
    void openDxfFile(const std::string& path);
    /// Closes the drawing, so that its ids open nothing any more.
    void close();

    void setDwgScale(double value);
    void setDrawScale(double value);
    void setBreakDist(double value);
    void setLengthMode(int value);
    /// Replaces the file of the pipe systems, UTF-8.
    void writePipeSystems(const std::string& text);
    void removePipeSystems();

    /// A line that carries the texts.
    AcDbObjectId addPipe(const AcGePoint3d& from, const AcGePoint3d& to,
                         const PipeTexts& texts = {});
    /// A polyline of one arc from `from` to `to`, at the height of `from`.
    AcDbObjectId addArcPipe(const AcGePoint3d& from, const AcGePoint3d& to, double bulge,
                            const PipeTexts& texts = {});
    struct Vertex {
        double x;
        double y;
        double bulge = 0.0; ///< of the segment that begins here
    };
    AcDbObjectId addPolyline(std::initializer_list<Vertex> vertices, const PipeTexts& texts = {},
                             bool closed = false, double elevation = 0.0);
    /// Any other curve; takes it over.
    AcDbObjectId addCurve(AcDbEntity* curve, const PipeTexts& texts = {});

    AcDbObjectId addWell(const AcGePoint3d& at, const WellTexts& texts = {});
    /// A tank with this box, inserted at the middle of it.
    AcDbObjectId addTank(const AcGePoint3d& min, const AcGePoint3d& max,
                         const TankTexts& texts = {});
    /// A tank with this box, inserted at `at`.
    AcDbObjectId addTankAt(const AcGePoint3d& at, const AcGePoint3d& min, const AcGePoint3d& max,
                           const TankTexts& texts = {});
    /// A reference to the block `name`, which is defined as a unit square when it is not yet.
    AcDbObjectId addBlock(const AcGePoint3d& at, const wchar_t* name,
                          std::initializer_list<KeyText> texts = {});
    AcDbObjectId addText(const AcGePoint3d& at, const wchar_t* text, double height = 1.0,
                         double rotation = 0.0);
    /// Any entity; takes it over.
    AcDbObjectId addEntity(AcDbEntity* entity, std::initializer_list<KeyText> texts = {});

    /// A block whose geometry has the box from `min` to `max` about its base point (0, 0, 0).
    AcDbObjectId defineBlock(const wchar_t* name, const AcGePoint3d& min, const AcGePoint3d& max);
    /// A layer to put entities on.
    AcDbObjectId defineLayer(const wchar_t* name);

    void setText(AcDbObjectId id, const wchar_t* key, const wchar_t* text);
    /// The application without any string item.
    void setApplicationAlone(AcDbObjectId id, const wchar_t* key);
    void erase(AcDbObjectId id);

    /// The entity with this handle, upper-case hexadecimal; the null id when there is none.
    AcDbObjectId byHandle(const wchar_t* handle) const;
    AcDbDatabase& database() const;
    const sibling_tests::TemporaryFolder& folder() const { return folder_; }

private:
    void replaceDocument(AcApDocument* document);
    void applySettings();
    AcDbObjectId findBlock(const wchar_t* name) const;
    void writeTexts(AcDbObjectId id, const PipeTexts& texts);

    sibling_tests::TemporaryFolder folder_;
    siblings::DrawingSettings settings_;
    AcApDocument* document_ = nullptr;
    int tankCount_ = 0;
    int dxfCount_ = 0;
};

/// A test with a drawing.
class DrawingTest : public ::testing::Test {
protected:
    DrawingBuilder drawing;
};

} // namespace module_tests
