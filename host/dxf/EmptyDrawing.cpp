#include "dxf/EmptyDrawing.h"

#include "database/AcDbDatabase.h"
#include "database/OpenObject.h"
#include "dxf/TagWriter.h"

#include <array>
#include <initializer_list>
#include <utility>

namespace host_dxf {

namespace {

/// Sheet of the one layout, in millimetres.
constexpr double sheetWidth = 420.0;
constexpr double sheetHeight = 297.0;
constexpr double margin = 7.5;

struct Space {
    const wchar_t* name;
    std::uint64_t record;
    std::uint64_t layout;
};

/// Writes the file section by section.
class Builder {
public:
    explicit Builder(const AcDbDatabase& database)
        : database_(database), decoder_("", true), encoder_(decoder_),
          writer_(TagStyle(), encoder_), next_(database.handseed().value()) {}

    std::string build() {
        spaces_ = {{{L"*Model_Space", record(database_.blockTableId(), L"*Model_Space"), fresh()},
                    {L"*Paper_Space", record(database_.blockTableId(), L"*Paper_Space"), fresh()}}};
        tables();
        blocks();
        emptySection("ENTITIES");
        objects();
        writer_.plain(0, "EOF");
        const std::string body = writer_.take();
        header();
        return writer_.take() + body;
    }

private:
    using Group = std::pair<int, double>;

    std::uint64_t fresh() { return next_++; }

    std::uint64_t record(AcDbObjectId table, const wchar_t* name) {
        const auto* const opened = host_db::peek<AcDbSymbolTable>(table);
        const AcDbObjectId id = opened == nullptr ? AcDbObjectId() : opened->find(name);
        return id.isNull() ? fresh() : id.handle().value();
    }

    void reals(std::initializer_list<Group> groups) {
        for (const auto& [code, value] : groups) {
            writer_.real(code, value);
        }
    }

    void integers(std::initializer_list<std::pair<int, int>> groups) {
        for (const auto& [code, value] : groups) {
            writer_.integer(code, value);
        }
    }

    void point(int code, double x, double y, double z) {
        reals({{code, x}, {code + 10, y}, {code + 20, z}});
    }

    void section(std::string_view name) {
        writer_.plain(0, "SECTION");
        writer_.plain(2, name);
    }

    void endSection() { writer_.plain(0, "ENDSEC"); }

    void emptySection(std::string_view name) {
        section(name);
        endSection();
    }

    void variable(std::string_view name, int code, std::string_view value) {
        writer_.plain(9, name);
        writer_.plain(code, value);
    }

    void header() {
        section("HEADER");
        variable("$ACADVER", 1, "AC1032");
        variable("$DWGCODEPAGE", 3, "ANSI_1252");
        writer_.plain(9, "$INSBASE");
        point(10, 0.0, 0.0, 0.0);
        variable("$TEXTSTYLE", 7, "Standard");
        variable("$CLAYER", 8, "0");
        variable("$CELTYPE", 6, "ByLayer");
        variable("$CECOLOR", 62, "256");
        variable("$LUNITS", 70, "2");
        variable("$INSUNITS", 70, "6"); // metres
        variable("$MEASUREMENT", 70, "1");
        variable("$TILEMODE", 70, "1");
        writer_.plain(9, "$HANDSEED");
        writer_.handle(5, next_);
        endSection();
        emptySection("CLASSES");
    }

    void table(std::string_view name, std::uint64_t handle, std::int64_t count) {
        writer_.plain(0, "TABLE");
        writer_.plain(2, name);
        writer_.handle(5, handle);
        writer_.handle(330, 0);
        writer_.plain(100, "AcDbSymbolTable");
        writer_.integer(70, count);
        if (name == "DIMSTYLE") {
            writer_.plain(100, "AcDbDimStyleTable");
            writer_.integer(71, count);
        }
    }

    void endTable() { writer_.plain(0, "ENDTAB"); }

    void recordHead(std::string_view type, std::string_view marker, std::uint64_t handle,
                    std::uint64_t owner, const wchar_t* name) {
        writer_.plain(0, type);
        writer_.handle(type == "DIMSTYLE" ? 105 : 5, handle);
        writer_.handle(330, owner);
        writer_.plain(100, "AcDbSymbolTableRecord");
        writer_.plain(100, marker);
        writer_.text(2, name);
        if (type != "BLOCK_RECORD") {
            writer_.integer(70, 0);
        }
    }

    void tables() {
        section("TABLES");
        viewports();
        linetypes();
        layers();
        styles();
        table("VIEW", fresh(), 0);
        endTable();
        table("UCS", fresh(), 0);
        endTable();
        simpleTable("APPID", "AcDbRegAppTableRecord", database_.regAppTableId(), L"ACAD");
        simpleTable("DIMSTYLE", "AcDbDimStyleTableRecord", database_.dimStyleTableId(),
                    L"Standard");
        blockRecords();
        endSection();
    }

    void viewports() {
        const std::uint64_t handle = fresh();
        table("VPORT", handle, 1);
        recordHead("VPORT", "AcDbViewportTableRecord", fresh(), handle, L"*Active");
        reals({{10, 0.0}, {20, 0.0}, {11, 1.0}, {21, 1.0}, {12, 210.0}, {22, 148.5}});
        reals({{13, 0.0}, {23, 0.0}, {14, 10.0}, {24, 10.0}, {15, 10.0}, {25, 10.0}});
        point(16, 0.0, 0.0, 1.0);
        point(17, 0.0, 0.0, 0.0);
        reals({{40, sheetHeight}, {41, 1.5}, {42, 50.0}, {43, 0.0}, {44, 0.0}});
        reals({{50, 0.0}, {51, 0.0}});
        integers({{71, 0}, {72, 100}, {73, 1}, {74, 3}, {75, 0}, {76, 0}, {77, 0}, {78, 0}});
        endTable();
    }

    void linetypes() {
        const AcDbObjectId id = database_.linetypeTableId();
        const std::uint64_t handle = id.handle().value();
        table("LTYPE", handle, 3);
        for (const wchar_t* const name : {L"ByBlock", L"ByLayer", L"Continuous"}) {
            recordHead("LTYPE", "AcDbLinetypeTableRecord", record(id, name), handle, name);
            writer_.plain(3, "");
            integers({{72, 65}, {73, 0}});
            writer_.real(40, 0.0);
        }
        endTable();
    }

    void layers() {
        const AcDbObjectId id = database_.layerTableId();
        const std::uint64_t handle = id.handle().value();
        table("LAYER", handle, 1);
        recordHead("LAYER", "AcDbLayerTableRecord", record(id, L"0"), handle, L"0");
        writer_.integer(62, 7);
        writer_.plain(6, "Continuous");
        writer_.integer(370, -3);
        plotStyle_ = fresh();
        writer_.handle(390, plotStyle_);
        endTable();
    }

    void styles() {
        const AcDbObjectId id = database_.textStyleTableId();
        const std::uint64_t handle = id.handle().value();
        table("STYLE", handle, 1);
        recordHead("STYLE", "AcDbTextStyleTableRecord", record(id, L"Standard"), handle,
                   L"Standard");
        reals({{40, 0.0}, {41, 1.0}, {50, 0.0}});
        writer_.integer(71, 0);
        writer_.real(42, 2.5);
        writer_.plain(3, "txt");
        writer_.plain(4, "");
        endTable();
    }

    void simpleTable(std::string_view type, std::string_view marker, AcDbObjectId id,
                     const wchar_t* name) {
        const std::uint64_t handle = id.handle().value();
        table(type, handle, 1);
        recordHead(type, marker, record(id, name), handle, name);
        endTable();
    }

    void blockRecords() {
        const std::uint64_t handle = database_.blockTableId().handle().value();
        table("BLOCK_RECORD", handle, static_cast<std::int64_t>(spaces_.size()));
        for (const Space& space : spaces_) {
            recordHead("BLOCK_RECORD", "AcDbBlockTableRecord", space.record, handle, space.name);
            writer_.handle(340, space.layout);
            integers({{70, 0}, {280, 1}, {281, 0}});
        }
        endTable();
    }

    void blockEdge(std::string_view type, const Space& space) {
        writer_.plain(0, type);
        writer_.handle(5, fresh());
        writer_.handle(330, space.record);
        writer_.plain(100, "AcDbEntity");
        if (&space != &spaces_[0]) {
            writer_.integer(67, 1);
        }
        writer_.plain(8, "0");
    }

    void blocks() {
        section("BLOCKS");
        for (const Space& space : spaces_) {
            blockEdge("BLOCK", space);
            writer_.plain(100, "AcDbBlockBegin");
            writer_.text(2, space.name);
            writer_.integer(70, 0);
            point(10, 0.0, 0.0, 0.0);
            writer_.text(3, space.name);
            writer_.plain(1, "");
            blockEdge("ENDBLK", space);
            writer_.plain(100, "AcDbBlockEnd");
        }
        endSection();
    }

    using Entries = std::initializer_list<std::pair<std::string_view, std::uint64_t>>;

    void objectHead(std::string_view type, std::uint64_t handle, std::uint64_t owner) {
        writer_.plain(0, type);
        writer_.handle(5, handle);
        if (owner != 0) {
            writer_.plain(102, "{ACAD_REACTORS");
            writer_.handle(330, owner);
            writer_.plain(102, "}");
        }
        writer_.handle(330, owner);
    }

    void entries(const Entries& all) {
        for (const auto& [name, handle] : all) {
            writer_.plain(3, name);
            writer_.handle(350, handle);
        }
    }

    void dictionary(std::uint64_t handle, std::uint64_t owner, const Entries& all) {
        objectHead("DICTIONARY", handle, owner);
        writer_.plain(100, "AcDbDictionary");
        writer_.integer(281, 1);
        entries(all);
    }

    void objects() {
        const std::uint64_t root = database_.namedObjectsDictionaryId().handle().value();
        const std::uint64_t groups = fresh();
        const std::uint64_t layouts = fresh();
        const std::uint64_t multilines = fresh();
        const std::uint64_t plotStyles = fresh();
        const std::uint64_t multiline = fresh();
        section("OBJECTS");
        dictionary(root, 0,
                   {{"ACAD_GROUP", groups},
                    {"ACAD_LAYOUT", layouts},
                    {"ACAD_MLINESTYLE", multilines},
                    {"ACAD_PLOTSTYLENAME", plotStyles}});
        dictionary(groups, root, {});
        dictionary(layouts, root, {{"Layout1", spaces_[1].layout}, {"Model", spaces_[0].layout}});
        dictionary(multilines, root, {{"Standard", multiline}});
        plotStyleNames(plotStyles, root);
        layout(spaces_[0], layouts, "Model", 0);
        layout(spaces_[1], layouts, "Layout1", 1);
        multilineStyle(multiline, multilines);
        endSection();
    }

    void plotStyleNames(std::uint64_t handle, std::uint64_t root) {
        objectHead("ACDBDICTIONARYWDFLT", handle, root);
        writer_.plain(100, "AcDbDictionary");
        writer_.integer(281, 1);
        entries({{"Normal", plotStyle_}});
        writer_.plain(100, "AcDbDictionaryWithDefault");
        writer_.handle(340, plotStyle_);
        objectHead("ACDBPLACEHOLDER", plotStyle_, handle);
    }

    void layout(const Space& space, std::uint64_t owner, std::string_view name, int order) {
        const bool model = order == 0;
        objectHead("LAYOUT", space.layout, owner);
        writer_.plain(100, "AcDbPlotSettings");
        writer_.plain(1, "");
        writer_.plain(2, "none_device");
        writer_.plain(4, "A3");
        writer_.plain(6, "");
        reals({{40, margin}, {41, margin}, {42, margin}, {43, margin}});
        reals({{44, sheetWidth}, {45, sheetHeight}, {46, 0.0}, {47, 0.0}, {48, 0.0}, {49, 0.0}});
        reals({{140, 0.0}, {141, 0.0}, {142, 1.0}, {143, 1.0}});
        integers({{70, model ? 1712 : 688}, {72, 1}, {73, 0}, {74, 5}});
        writer_.plain(7, "");
        integers({{75, 16}, {76, 0}, {77, 2}, {78, 300}});
        reals({{147, 1.0}, {148, 0.0}, {149, 0.0}});
        writer_.plain(100, "AcDbLayout");
        writer_.plain(1, name);
        integers({{70, 1}, {71, order}});
        reals({{10, 0.0}, {20, 0.0}, {11, sheetWidth}, {21, sheetHeight}});
        point(12, 0.0, 0.0, 0.0);
        point(14, 0.0, 0.0, 0.0);
        point(15, sheetWidth, sheetHeight, 0.0);
        writer_.real(146, 0.0);
        point(13, 0.0, 0.0, 0.0);
        point(16, 1.0, 0.0, 0.0);
        point(17, 0.0, 1.0, 0.0);
        writer_.integer(76, 0);
        writer_.handle(330, space.record);
    }

    void multilineStyle(std::uint64_t handle, std::uint64_t owner) {
        objectHead("MLINESTYLE", handle, owner);
        writer_.plain(100, "AcDbMlineStyle");
        writer_.plain(2, "Standard");
        writer_.integer(70, 0);
        writer_.plain(3, "");
        writer_.integer(62, 256);
        reals({{51, 90.0}, {52, 90.0}});
        writer_.integer(71, 2);
        for (const double offset : {0.5, -0.5}) {
            writer_.real(49, offset);
            writer_.integer(62, 256);
            writer_.plain(6, "ByLayer");
        }
    }

    const AcDbDatabase& database_;
    TextDecoder decoder_;
    TextEncoder encoder_;
    TagWriter writer_;
    std::uint64_t next_;
    std::uint64_t plotStyle_ = 0;
    std::array<Space, 2> spaces_{};
};

} // namespace

std::string emptyDrawing(const AcDbDatabase& database) {
    return Builder(database).build();
}

} // namespace host_dxf
