#include "editor/SystemVariables.h"

#include "host/database/DatabaseFixture.h"

#include "database/SymbolTables.h"
#include "editor/EditorView.h"

namespace {

class SystemVariablesTest : public DatabaseFixture {
protected:
    /// The value of a number variable; fails for another type.
    static int numberOf(const ACHAR* name) {
        resbuf value{};
        EXPECT_EQ(acedGetVar(name, &value), RTNORM);
        EXPECT_EQ(value.restype, RTSHORT);
        return value.resval.rint;
    }

    static int setNumber(const ACHAR* name, short number) {
        resbuf value{};
        value.restype = RTSHORT;
        value.resval.rint = number;
        return acedSetVar(name, &value);
    }

    static int setText(const ACHAR* name, const ACHAR* text) {
        resbuf* value = acutBuildList(RTSTR, text, 0);
        const int result = acedSetVar(name, value);
        acutRelRb(value);
        return result;
    }

    static std::wstring textOf(const ACHAR* name) {
        resbuf value{};
        EXPECT_EQ(acedGetVar(name, &value), RTNORM);
        EXPECT_EQ(value.restype, RTSTR);
        std::wstring text = value.resval.rstring;
        acutDelString(value.resval.rstring);
        return text;
    }
};

TEST_F(SystemVariablesTest, TheEchoIsSavedClearedAndPutBack) {
    resbuf saved{};
    ASSERT_EQ(acedGetVar(L"cmdEcho", &saved), RTNORM);
    EXPECT_EQ(saved.resval.rint, 1);
    resbuf off = saved;
    off.resval.rint = 0;
    EXPECT_EQ(acedSetVar(L"cmdEcho", &off), RTNORM);
    EXPECT_EQ(numberOf(L"CMDECHO"), 0);
    EXPECT_EQ(acedSetVar(L"cmdEcho", &saved), RTNORM);
    EXPECT_EQ(numberOf(L"cmdecho"), 1);
}

TEST_F(SystemVariablesTest, SnapModeAndOsModeAreNumbers) {
    EXPECT_EQ(numberOf(L"snapmode"), 0);
    EXPECT_EQ(setNumber(L"SnapMode", 1), RTNORM);
    EXPECT_EQ(numberOf(L"SNAPMODE"), 1);
    const int before = numberOf(L"osmode");
    EXPECT_EQ(setNumber(L"osmode", 33), RTNORM);
    EXPECT_EQ(numberOf(L"osmode"), 33);
    EXPECT_EQ(setNumber(L"osmode", static_cast<short>(before)), RTNORM);
}

TEST_F(SystemVariablesTest, TheDrawingsVariablesGoWithIt) {
    EXPECT_EQ(setNumber(L"snapmode", 1), RTNORM);
    {
        AcDbDatabase other;
        acdbHostApplicationServices()->setWorkingDatabase(&other);
        EXPECT_EQ(numberOf(L"snapmode"), 0);
        acdbHostApplicationServices()->setWorkingDatabase(&database());
    }
    EXPECT_EQ(numberOf(L"snapmode"), 1);
}

TEST_F(SystemVariablesTest, WrongNamesTypesAndValuesChangeNothing) {
    resbuf value{};
    value.restype = 77;
    EXPECT_EQ(acedGetVar(L"nosuchname", &value), RTERROR);
    EXPECT_EQ(acedGetVar(nullptr, &value), RTERROR);
    EXPECT_EQ(value.restype, 77);
    EXPECT_EQ(acedGetVar(L"cmdecho", nullptr), RTERROR);
    EXPECT_EQ(setNumber(L"nosuchname", 1), RTERROR);
    EXPECT_EQ(setNumber(L"snapmode", 2), RTERROR);
    EXPECT_EQ(setNumber(L"snapmode", -1), RTERROR);
    EXPECT_EQ(setText(L"snapmode", L"1"), RTERROR);
    value.restype = RTREAL;
    value.resval.rreal = 1.0;
    EXPECT_EQ(acedSetVar(L"snapmode", &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"snapmode", nullptr), RTERROR);
    EXPECT_EQ(numberOf(L"snapmode"), 0);
    value.resval.rreal = 0.0;
    EXPECT_EQ(acedSetVar(L"ltscale", &value), RTERROR);
    value.resval.rreal = 0.5;
    EXPECT_EQ(acedSetVar(L"ltscale", &value), RTNORM);
}

TEST_F(SystemVariablesTest, ReadOnlyOnesAreNotSet) {
    EXPECT_EQ(setNumber(L"worlducs", 0), RTERROR);
    EXPECT_EQ(setNumber(L"undoctl", 0), RTERROR);
    EXPECT_EQ(setText(L"dwgname", L"x"), RTERROR);
    EXPECT_EQ(setText(L"ctab", L"Layout1"), RTERROR);
    EXPECT_EQ(textOf(L"ctab"), L"Model");
}

TEST_F(SystemVariablesTest, TheCurrentLayerIsThatOfTheDrawing) {
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"管线");
    const AcDbObjectId id = addRecord<AcDbLayerTable>(std::move(layer));
    auto frozen = std::make_unique<AcDbLayerTableRecord>();
    frozen->setName(L"COLD");
    frozen->setIsFrozen(true);
    addRecord<AcDbLayerTable>(std::move(frozen));
    EXPECT_EQ(textOf(L"clayer"), L"0");
    EXPECT_EQ(setText(L"CLAYER", L"管线"), RTNORM);
    EXPECT_EQ(database().clayer(), id);
    EXPECT_EQ(textOf(L"clayer"), L"管线");
    EXPECT_EQ(setText(L"clayer", L"NONE"), RTERROR);
    EXPECT_EQ(setText(L"clayer", L"cold"), RTERROR);
    EXPECT_EQ(setNumber(L"clayer", 1), RTERROR);
    EXPECT_EQ(database().clayer(), id);
}

TEST_F(SystemVariablesTest, TheChainBehindTheResultIsLeftAlone) {
    resbuf rest{};
    resbuf value{};
    value.rbnext = &rest;
    EXPECT_EQ(acedGetVar(L"cmdecho", &value), RTNORM);
    EXPECT_EQ(value.rbnext, &rest);
}

TEST_F(SystemVariablesTest, WithoutADrawingThereAreNone) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    resbuf value{};
    EXPECT_EQ(acedGetVar(L"cmdecho", &value), RTERROR);
    EXPECT_EQ(setNumber(L"cmdecho", 1), RTERROR);
}

class EditorViewTest : public DatabaseFixture {};

TEST_F(EditorViewTest, PointsAndVectorsGoBetweenTheSystems) {
    // Origin (10, 20, 30), X along the world's Y, Y against the world's X.
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({10, 20, 30}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    AcGePoint3d point(1, 2, 3);
    ASSERT_TRUE(acdbUcs2Wcs(asDblArray(point), asDblArray(point), false));
    expectPoint(point, 8, 21, 33);
    ASSERT_TRUE(acdbWcs2Ucs(asDblArray(point), asDblArray(point), false));
    expectPoint(point, 1, 2, 3);
    AcGeVector3d vector(1, 2, 3);
    ASSERT_TRUE(acdbUcs2Wcs(asDblArray(vector), asDblArray(vector), true));
    expectPoint(AcGePoint3d() + vector, -2, 1, 3);
    resbuf origin{};
    ASSERT_EQ(acedGetVar(L"ucsorg", &origin), RTNORM);
    EXPECT_EQ(origin.restype, RT3DPOINT);
    EXPECT_EQ(origin.resval.rpoint[1], 20.0);
    resbuf axis{};
    ASSERT_EQ(acedGetVar(L"ucsxdir", &axis), RTNORM);
    EXPECT_EQ(axis.resval.rpoint[1], 1.0);
}

TEST_F(EditorViewTest, TheWorldIsTheSystemUntilOneIsSet) {
    AcGeMatrix3d ucs;
    ucs.setToTranslation({1, 1, 1});
    ASSERT_EQ(acedGetCurrentUCS(ucs), Acad::eOk);
    EXPECT_EQ(ucs, AcGeMatrix3d::kIdentity);
    resbuf value{};
    ASSERT_EQ(acedGetVar(L"worlducs", &value), RTNORM);
    EXPECT_EQ(value.resval.rint, 1);
}

TEST_F(EditorViewTest, SkewedAndScaledAxesAreRefused) {
    AcGeMatrix3d scaled;
    scaled.setToScaling(2.0);
    EXPECT_EQ(acedSetCurrentUCS(scaled), Acad::eInvalidInput);
    AcGeMatrix3d mirrored;
    mirrored.entry[2][2] = -1.0;
    EXPECT_EQ(acedSetCurrentUCS(mirrored), Acad::eInvalidInput);
    AcGeMatrix3d skewed;
    skewed.entry[0][1] = 0.5;
    EXPECT_EQ(acedSetCurrentUCS(skewed), Acad::eInvalidInput);
}

TEST_F(EditorViewTest, RedrawChecksWhatItIsGiven) {
    const AcDbObjectId line = addLine();
    ads_name name;
    acdbGetAdsName(name, line);
    EXPECT_EQ(acedRedraw(name, 1), RTNORM);
    EXPECT_EQ(acedRedraw(name, -4), RTNORM);
    EXPECT_EQ(acedRedraw(nullptr, 1), RTNORM);
    EXPECT_EQ(acedRedraw(name, 0), RTERROR);
    EXPECT_EQ(acedRedraw(name, 5), RTERROR);
    const ads_name nothing = {123456, 0};
    EXPECT_EQ(acedRedraw(nothing, 1), RTERROR);
    AcDbLine* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, line, AcDb::kForWrite), Acad::eOk);
    opened->erase();
    opened->close();
    EXPECT_EQ(acedRedraw(name, 1), RTERROR);
}

} // namespace
