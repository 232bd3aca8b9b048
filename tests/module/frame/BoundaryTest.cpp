// What sibling modules link to, as one of them sees it: this program is linked with the shared
// library alone, so a signature that differs does not compile and a missing one does not link.

#include "frame/AcrxEntryPoint.h"
#include "TKVltSearchModule18.h"

#include "module/support/DrawingBuilder.h"
#include "module/support/FieldOrder.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <type_traits>
#include <vector>

namespace module_tests {
namespace {

/// The address of a function that has exactly this signature; of overloads the one that has it.
template<class Function>
const void* address(Function* function) {
    return reinterpret_cast<const void*>(function);
}

TEST(Boundary, SearchesHaveTheirSignatures) {
    EXPECT_NE(address<int(SearchObject*&, AcDbObjectId&, AcDbObjectId&, AcGePoint3d)>(
                  &GetSearchInformation),
              nullptr);
    EXPECT_NE(address<int(GravitySearchObject*, AcDbObjectId&, AcDbObjectId&, AcGePoint3d&)>(
                  &GetGravityNetwork),
              nullptr);
    EXPECT_NE(address<int(CArray<PressureSeg, PressureSeg&>&, AcDbObjectId, AcGePoint3d, int&)>(
                  &GetPressureNetwork),
              nullptr);
    EXPECT_NE(address<int(CString)>(&PelGetDirectionSytle), nullptr);
    EXPECT_NE((address<int(CString&, const CString&)>(&PelGetSystemFlag)), nullptr);
}

TEST(Boundary, EntryPointsHaveTheirSignatures) {
    EXPECT_NE((address<int(int, void*)>(&acrxEntryPoint)), nullptr);
    EXPECT_NE(address<int()>(&acrxGetApiVersion), nullptr);
}

TEST(Boundary, ServicesHaveTheirSignatures) {
    EXPECT_NE((address<int(Seg&, const AcDbObjectId&)>(&GetSingleSeg)), nullptr);
    EXPECT_NE(
        (address<int(CArray<Seg, Seg&>&, const AcDbObjectIdArray&, int)>(&GetSegsForCollideTest)),
        nullptr);
    EXPECT_NE((address<int(AcDbObjectId, double)>(&LowerHeightForCollideTest)), nullptr);
    EXPECT_NE((address<int(GravitySearchObject*&, AcDbObjectId&)>(&FindGravityPath)), nullptr);
    EXPECT_NE((address<int(CArray<PressureSeg, PressureSeg&>&, CString)>(&FindLineEntity)),
              nullptr);
    EXPECT_NE((address<int(GravitySearchObject*&, int)>(&DeleteSeg)), nullptr);
}

TEST(Boundary, CommandsAndSetsHaveTheirSignatures) {
    EXPECT_NE(address<void()>(&PelClearLastCommand), nullptr);
    EXPECT_NE(address<void()>(&PelStartCommandGroup), nullptr);
    EXPECT_NE(address<void()>(&PelEndCommandGroup), nullptr);
    EXPECT_NE(address<void()>(&PelRedraw), nullptr);
    EXPECT_NE((address<void(const AcDbObjectId&, int)>(&PelIdRedraw)), nullptr);
    EXPECT_NE((address<void(const AcDbObjectIdArray&, int)>(&PelIdArrRedraw)), nullptr);
    EXPECT_NE(address<void(wchar_t*)>(&PelSendAcadCommand), nullptr);
    EXPECT_NE((address<void(ads_name, CString, CString)>(&PelPurePipeSS)), nullptr);
    EXPECT_NE((address<int(ads_name, AcDbObjectIdArray&)>(&PelSS2IdArr)), nullptr);
    EXPECT_NE(address<void(ads_name)>(&PelDeleteSS), nullptr);
    EXPECT_NE(address<int(AcDbObjectId)>(&PelEraseObject), nullptr);
    EXPECT_NE(address<int(ads_name)>(&PelEraseObject), nullptr);
    EXPECT_NE(address<void(AcDbObjectIdArray&)>(&PelEraseObject), nullptr);
    EXPECT_NE((address<int(const AcDbObjectIdArray&, const AcDbObjectIdArray&)>(&PelIsIdArrSame)),
              nullptr);
    EXPECT_NE((address<int(AcDbObjectIdArray&, AcDbObjectId)>(&PelIsIdInIdArr)), nullptr);
    EXPECT_NE((address<int(const CStringArray&, const CString&, int)>(&PelIsCStringInCStringArray)),
              nullptr);
    EXPECT_NE((address<int(CArray<double, double>&)>(&PelFindMinIndex)), nullptr);
}

TEST(Boundary, CutsAndLineTestsHaveTheirSignatures) {
    using Status = Acad::ErrorStatus;
    EXPECT_NE((address<Status(AcDbObjectId, AcDbObjectId)>(&PelBlockTrimLine)), nullptr);
    EXPECT_NE((address<Status(AcDbObjectId, AcGePoint3d, double)>(&PelBlockTrimLine)), nullptr);
    EXPECT_NE((address<Status(AcDbObjectIdArray, AcGePoint3d, double)>(&PelBlockTrimLine)),
              nullptr);
    EXPECT_NE((address<int(AcDbObjectId, AcDbObjectId)>(&PelBlockTrimCurve)), nullptr);
    EXPECT_NE(address<void(ads_name)>(&PelTrimAllLineByBlkRef), nullptr);
    EXPECT_NE(address<void(AcDbObjectIdArray&)>(&PelBreakLine), nullptr);
    EXPECT_NE((address<int(AcGePoint3d, AcGePoint3d, AcGePoint3d&, AcGePoint3d&)>(&PelSeeIfCould)),
              nullptr);
    EXPECT_NE((address<int(AcGePoint3d, AcGePoint3d, AcGePoint3dArray&)>(
                  &PelFindClosetPointWithDirection)),
              nullptr);
}

TEST(Boundary, StoredValuesHaveTheirSignatures) {
    EXPECT_NE((address<int(CString, CString, CString&)>(&PelGetKDPValue)), nullptr);
    EXPECT_NE((address<int(CString, CString, int&)>(&PelGetKDPValue)), nullptr);
    EXPECT_NE((address<int(CString, CString, double&)>(&PelGetKDPValue)), nullptr);
    EXPECT_NE((address<int(CString, CString, CString)>(&PelSetKDPValue)), nullptr);
    EXPECT_NE((address<int(CString, CString, int)>(&PelSetKDPValue)), nullptr);
    EXPECT_NE((address<int(CString, CString, double)>(&PelSetKDPValue)), nullptr);
    EXPECT_NE((address<int(CString, CString, CString&)>(&PelGetXRecord)), nullptr);
    EXPECT_NE((address<int(CString, CString, CString)>(&PelSetXRecord)), nullptr);
    EXPECT_NE((address<int(AcDbObjectId, resbuf*)>(&PelSetXdata)), nullptr);
    EXPECT_NE((address<int(ads_name, resbuf*)>(&PelSetXdata)), nullptr);
    EXPECT_NE((address<void(CString, CWnd*)>(&PelGetRect)), nullptr);
    EXPECT_NE((address<void(CString, CWnd*)>(&PelSaveRect)), nullptr);
}

TEST(Boundary, TablesTextsAndPointsHaveTheirSignatures) {
    using Status = Acad::ErrorStatus;
    EXPECT_NE((address<int(CString, AcDbObjectId&)>(&PelGetLineTypeId)), nullptr);
    EXPECT_NE(address<int(CString)>(&PelIsLayerOff), nullptr);
    EXPECT_NE(address<int(CString)>(&PelIsLayerLocked), nullptr);
    EXPECT_NE((address<Status(CString, AcDbObjectId&)>(&PelGetDimStyleId)), nullptr);
    EXPECT_NE((address<Status(CString, AcDbObjectId&, double&)>(&PelGetTextStyleId)), nullptr);
    EXPECT_NE((address<double(CString, const CString&)>(&PelGetTextWidth)), nullptr);
    EXPECT_NE(address<int(AcDbObjectId)>(&PelMultiPL2DblPl), nullptr);
    EXPECT_NE((address<int(CPoint&, AcGePoint3d&)>(&PelPixelPtToUcsPt)), nullptr);
    EXPECT_NE((address<AcGePoint3d(AcGePoint3d&, AcGePoint3d&)>(&PelTopLeftPoint)), nullptr);
    EXPECT_NE((address<AcGePoint3d(AcGePoint3d, AcGeVector3d, double)>(&PelGetPolarPoint)),
              nullptr);
}

/// The type of a member that has exactly this one.
template<class Member>
constexpr bool has(Member /*member*/) {
    return true;
}

TEST(Boundary, MembersHaveTheirSignatures) {
    EXPECT_TRUE(has<double (_Pipe::*)()>(&_Pipe::GetLength));
    EXPECT_TRUE((has<double (_Pipe::*)(AcGePoint3d, AcGePoint3d)>(&_Pipe::GetLength)));
    EXPECT_TRUE(has<double (GravitySeg::*)()>(&GravitySeg::GetLength));
    EXPECT_TRUE(has<AcGePoint3d (PressureSeg::*)()>(&PressureSeg::GetSearchPoint));
    EXPECT_TRUE(has<AcGePoint3d (PressureSeg::*)()>(&PressureSeg::GetBeginPoint));
    EXPECT_TRUE(
        (has<void (PressureSeg::*)(AcGePoint3d, AcDbObjectId)>(&PressureSeg::InsertMeterWell)));
    EXPECT_TRUE(
        (has<void (PressureSeg::*)(AcGePoint3d, AcDbObjectId)>(&PressureSeg::InsertValveWell)));
    EXPECT_TRUE((has<void (PressureSeg::*)(AcGePoint3d, AcDbObjectId, double)>(
        &PressureSeg::InsertOutputPoint)));
    EXPECT_TRUE(has<int (PressureSeg::*)(AcGePoint3d)>(&PressureSeg::PtOnSeg));
    EXPECT_TRUE(has<double (PressureSeg::*)()>(&PressureSeg::GetLength));
    EXPECT_TRUE(has<AcGeVector3d (PressureSeg::*)()>(&PressureSeg::GetAnnnotateVector));
    EXPECT_TRUE(has<AcGePoint3d (PressureSeg::*)()>(&PressureSeg::GetAnnoatePoint));
}

template<class Class>
void expectRunTimeClass() {
    EXPECT_NE(address<CRuntimeClass*()>(&Class::GetThisClass), nullptr);
    EXPECT_NE(address<CRuntimeClass*()>(&Class::_GetBaseClass), nullptr);
    EXPECT_TRUE(has<CRuntimeClass* (Class::*)() const>(&Class::GetRuntimeClass));
    EXPECT_TRUE(std::is_default_constructible_v<Class>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Class>);
}

TEST(Boundary, ResultObjectsGiveTheirRunTimeClasses) {
    expectRunTimeClass<SearchObject>();
    expectRunTimeClass<GravitySearchObject>();
    expectRunTimeClass<PressureSearchObject>();
    EXPECT_EQ(SearchObject::GetThisClass(), &SearchObject::classSearchObject);
    EXPECT_EQ(GravitySearchObject::GetThisClass(), &GravitySearchObject::classGravitySearchObject);
    EXPECT_EQ(PressureSearchObject::GetThisClass(),
              &PressureSearchObject::classPressureSearchObject);
}

template<class Record, bool kAssignsFromConst>
void expectRecord() {
    EXPECT_TRUE((std::is_default_constructible_v<Record>));
    EXPECT_TRUE((std::is_constructible_v<Record, Record&>));
    EXPECT_FALSE((std::is_constructible_v<Record, const Record&>));
    EXPECT_TRUE((std::is_assignable_v<Record&, Record&>));
    EXPECT_EQ((std::is_assignable_v<Record&, const Record&>), kAssignsFromConst);
    // The snapshots assign from a constant and have one virtual operation, the destructor; the
    // segments have none.
    EXPECT_EQ(std::is_polymorphic_v<Record>, kAssignsFromConst);
    EXPECT_EQ(std::has_virtual_destructor_v<Record>, kAssignsFromConst);
}

TEST(Boundary, RecordsAreMadeAndCopiedByTheirSignatures) {
    expectRecord<_Entity, true>();
    expectRecord<_Pipe, true>();
    expectRecord<_Block, true>();
    expectRecord<_Text, true>();
    expectRecord<Well, true>();
    expectRecord<GravitySeg, false>();
    expectRecord<PressureSeg, false>();
    expectRecord<Seg, false>();
    EXPECT_TRUE((std::is_constructible_v<_Entity, AcDbObjectId, CString>));
    EXPECT_TRUE((std::is_constructible_v<_Pipe, AcDbObjectId, CString>));
    EXPECT_TRUE((std::is_constructible_v<_Block, AcDbObjectId, CString, CString>));
    EXPECT_TRUE((std::is_constructible_v<_Text, AcDbObjectId>));
}

/// Makes, copies and assigns a record through the library's own code.
template<class Record>
void goThrough() {
    Record made;
    Record copied(made);
    copied = made;
}

TEST(Boundary, EveryOperationOfTheRecordsIsThere) {
    const DrawingBuilder drawing;
    goThrough<_Entity>();
    goThrough<_Pipe>();
    goThrough<_Block>();
    goThrough<_Text>();
    goThrough<Well>();
    goThrough<GravitySeg>();
    goThrough<PressureSeg>();
    goThrough<Seg>();
    const _Entity entity(AcDbObjectId(), CString(L"a"));
    const _Pipe pipe(AcDbObjectId(), CString(L"a"));
    const _Block block(AcDbObjectId(), CString(L"a"), CString(L"b"));
    const _Text text{AcDbObjectId()};
    EXPECT_EQ(entity.valid + pipe.valid + block.valid + text.valid, 0);
}

TEST(Boundary, FieldsOfAPressureSegmentStandInTheirOrder) {
    const DrawingBuilder drawing;
    const PressureSeg s;
    EXPECT_TRUE(standInThisOrder(
        &s, sizeof s,
        {&s.pipeIds,   &s.orientationFlags, &s.startPoint,   &s.endPoint,     &s.parent,
         &s.children,  &s.reversed,         &s.valvePoints,  &s.meterPoints,  &s.valveIds,
         &s.meterIds,  &s.startElevation,   &s.endElevation, &s.slope,        &s.diameter,
         &s.flowText,  &s.material,         &s.systemName,   &s.outputPoints, &s.outputValues,
         &s.outputIds, &s.callerValueA,     &s.callerValueB, &s.isArc,        &s.arc,
         &s.line,      &s.lengthMode}));
    EXPECT_EQ(static_cast<const void*>(&s), static_cast<const void*>(&s.pipeIds));
}

TEST(Boundary, FieldsOfASegStandInTheirOrder) {
    const DrawingBuilder drawing;
    const Seg s;
    EXPECT_TRUE(standInThisOrder(&s, sizeof s, {&s.kind, &s.pressure, &s.gravity}));
}

TEST(Boundary, FieldsOfThePressureResultStandInTheirOrder) {
    const PressureSearchObject o;
    EXPECT_TRUE(standInThisOrder(&o, sizeof o, {&o.rootSeg, &o.segs}));
}

/// The entries of an object's table of virtual operations. A destructor has two of them: one that
/// destroys, one that deletes as well.
const void* const* slotsOf(const CObject& object) {
    const void* const* slots = nullptr;
    std::memcpy(&slots, static_cast<const void*>(&object), sizeof slots);
    return slots;
}

/// A class with every operation of the base at a place that is known: the compiler's.
class Probe : public CObject {
public:
    CRuntimeClass* GetRuntimeClass() const override { return called(0); }
    ~Probe() override = default;
    void Serialize(CArchive& /*archive*/) override { called(3); }
    void AssertValid() const override { called(4); }
    void Dump(CDumpContext& /*context*/) const override { called(5); }

    mutable int last = -1;

private:
    CRuntimeClass* called(int slot) const {
        last = slot;
        return nullptr;
    }
};

/// Calls a slot as an operation that takes nothing but the object; those that are called here look
/// at nothing else.
void callSlot(const CObject& object, int slot) {
    using Operation = void (*)(const CObject*, void*);
    char argument[16] = {};
    const void* entry = slotsOf(object)[slot];
    Operation operation = nullptr;
    std::memcpy(&operation, &entry, sizeof operation);
    operation(&object, argument);
}

TEST(Boundary, VirtualOperationsStandInTheirOrder) {
    const Probe probe;
    for (const int slot : {0, 3, 4, 5}) {
        callSlot(probe, slot);
        EXPECT_EQ(probe.last, slot);
    }
}

TEST(Boundary, ResultObjectsKeepTheSlotsOfTheBase) {
    const CObject base;
    const SearchObject plain;
    const GravitySearchObject gravity;
    const PressureSearchObject pressure;
    for (const CObject* object : std::vector<const CObject*>{&plain, &gravity, &pressure}) {
        for (const int slot : {0, 1, 2}) {
            EXPECT_NE(slotsOf(*object)[slot], slotsOf(base)[slot]) << "its own: slot " << slot;
        }
        for (const int slot : {3, 4, 5}) {
            EXPECT_EQ(slotsOf(*object)[slot], slotsOf(base)[slot]) << "empty: slot " << slot;
        }
    }
}

/// Writes what happens in the host to standard error.
class Teller : private host::EventListener {
public:
    Teller() { host::addListener(*this); }

private:
    void onEvent(const std::wstring& line) override {
        std::fprintf(stderr, "%s\n", host_text::toUtf8(line).c_str());
    }
};

TEST(BoundaryDeathTest, ALinkedProgramEndsWithTheDetachBeforeTheStaticDestructors) {
    EXPECT_EXIT(
        {
            static Teller& teller = *new Teller; // tells to the very end
            static_cast<void>(teller);
            std::exit(0);
        },
        ::testing::ExitedWithCode(0),
        "^extension term libTKVltSearchModule18.so\n"
        "extension library gone libTKVltSearchModule18.so\n"
        "reactor removed\n$");
}

} // namespace
} // namespace module_tests
