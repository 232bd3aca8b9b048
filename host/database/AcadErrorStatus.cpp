#include "database/AcadErrorStatus.h"

#include <array>

const wchar_t* acadErrorStatusText(Acad::ErrorStatus status) {
    static constexpr std::array kNames = {
        L"eOk", L"eNotImplementedYet", L"eNotApplicable", L"eInvalidInput", L"eAmbiguousInput",
        L"eAmbiguousOutput", L"eOutOfMemory", L"eBufferTooSmall", L"eInvalidOpenState",
        L"eEntityInInactiveLayout", L"eHandleExists", L"eNullHandle", L"eBrokenHandle",
        L"eUnknownHandle", L"eHandleInUse", L"eNullObjectPointer", L"eNullObjectId",
        L"eNullBlockName", L"eContainerNotEmpty", L"eNullEntityPointer", L"eIllegalEntityType",
        L"eNoLayer", L"eKeyNotFound", L"eDuplicateKey", L"eInvalidIndex", L"eDuplicateIndex",
        L"eAlreadyInDb", L"eOutOfDisk", L"eDeletedEntry", L"eNegativeValueNotAllowed",
        L"eInvalidExtents", L"eInvalidAdsName", L"eInvalidKey", L"eInvalidSymbolTableName",
        L"eSymbolTableNotFound", L"eWasErased", L"ePermanentlyErased", L"eWasOpenForRead",
        L"eWasOpenForWrite", L"eWasOpenForUndo", L"eWasNotifying", L"eNotOpenForRead",
        L"eNotOpenForWrite", L"eAtMaxReaders", L"eSubentitySelectionSetEmpty",
        L"eInvalidObjectId", L"eNoDatabase", L"eNotInDatabase", L"eNotInBlock",
        L"eNotThatKindOfClass", L"eWrongDatabase", L"eRegappIdNotFound", L"eInvalidResBuf",
        L"eBadDxfSequence", L"eXdataSizeExceeded", L"eDegenerateGeometry", L"eSelfReference",
        L"eNoDocument", L"eNotClosed", L"eOwnerNotSet", L"eCannotBeErasedByCaller",
        L"eFileNotFound", L"eFileAccessErr", L"eNoActiveTransactions", L"eLockViolation"};
    static_assert(kNames.size() == Acad::eLockViolation + 1);
    const auto index = static_cast<std::size_t>(status);
    return index < kNames.size() ? kNames[index] : L"unknown";
}
