#include "host/dxf/SavedDrawing.h"
#include "module/utilities/UtilitiesTest.h"

#include "utilities/LayerFlags.h"

namespace module_tests {
namespace {

struct LayerFlag {
    const char* name;
    int (*ask)(CString);
    Acad::ErrorStatus (AcDbLayerTableRecord::*set)(bool);
    Acad::ErrorStatus (AcDbLayerTableRecord::*setOther)(bool);
};

const LayerFlag kFlags[] = {
    {"off", PelIsLayerOff, &AcDbLayerTableRecord::setIsOff, &AcDbLayerTableRecord::setIsLocked},
    {"locked", PelIsLayerLocked, &AcDbLayerTableRecord::setIsLocked,
     &AcDbLayerTableRecord::setIsOff}};

class LayerFlagsTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        layer = drawing.defineLayer(L"管线");
        table = handleOf(drawing.database().layerTableId());
        forget();
    }

    void set(Acad::ErrorStatus (AcDbLayerTableRecord::*flag)(bool), bool value) {
        dxf_test::changeObject<AcDbLayerTableRecord>(
            layer, [&](AcDbLayerTableRecord& record) { (record.*flag)(value); });
        forget();
    }

    AcDbObjectId layer;
    std::string table;
};

TEST_F(LayerFlagsTest, EachTellsItsOwnSwitchAlone) {
    for (const LayerFlag& flag : kFlags) {
        SCOPED_TRACE(flag.name);
        EXPECT_EQ(flag.ask(L"管线"), 0);
        set(flag.setOther, true);
        EXPECT_EQ(flag.ask(L"管线"), 0);
        set(flag.set, true);
        EXPECT_EQ(flag.ask(L"管线"), 1);
        set(flag.setOther, false);
        EXPECT_EQ(flag.ask(L"管线"), 1);
        set(flag.set, false);
    }
}

TEST_F(LayerFlagsTest, FrozenLayerIsNeitherOffNorLocked) {
    set(&AcDbLayerTableRecord::setIsFrozen, true);
    EXPECT_EQ(PelIsLayerOff(L"管线"), 0);
    EXPECT_EQ(PelIsLayerLocked(L"管线"), 0);
}

TEST_F(LayerFlagsTest, MissingLayerIsMinusOneWhichIsNotOn) {
    for (const LayerFlag& flag : kFlags) {
        SCOPED_TRACE(flag.name);
        forget();
        EXPECT_EQ(flag.ask(L"missing"), -1);
        EXPECT_EQ(events(),
                  (Lines{"lock kWrite", "open read " + table, "close " + table, "unlock"}));
        EXPECT_EQ(flag.ask(L""), -1);
    }
}

TEST_F(LayerFlagsTest, LockIsTakenForAllOfItAndTheTableClosedBeforeTheRecordIsRead) {
    for (const LayerFlag& flag : kFlags) {
        SCOPED_TRACE(flag.name);
        forget();
        flag.ask(L"管线");
        EXPECT_EQ(events(),
                  (Lines{"lock kWrite", "open read " + table, "open read " + handleOf(layer),
                         "close " + table, "close " + handleOf(layer), "unlock"}));
    }
}

TEST_F(LayerFlagsTest, TableOrRecordThatCannotBeOpenedIsMinusOne) {
    for (const LayerFlag& flag : kFlags) {
        SCOPED_TRACE(flag.name);
        for (const AcDbObjectId held : {drawing.database().layerTableId(), layer}) {
            AcDbObject* object = nullptr;
            ASSERT_EQ(acdbOpenAcDbObject(object, held, AcDb::kForWrite), Acad::eOk);
            EXPECT_EQ(flag.ask(L"管线"), -1);
            object->close();
        }
    }
}

TEST_F(LayerFlagsTest, NoDrawingIsMinusOne) {
    drawing.close();
    EXPECT_EQ(PelIsLayerOff(L"0"), -1);
    EXPECT_EQ(PelIsLayerLocked(L"0"), -1);
}

} // namespace
} // namespace module_tests
