#pragma once

#include "platform.h"

/// The names under which drawing entities carry their texts.
namespace xdata {

inline constexpr wchar_t kPipeSystem[] = L"管道系统"; ///< marks a pipe; the system name
inline constexpr wchar_t kWellSystem[] = L"管井系统"; ///< marks a well; the system name
/// Marks a tank in the selection filter and in the collection. Not the same name as `kTankSystem`:
/// drawings carry both, and each reader keeps its own.
inline constexpr wchar_t kTank[] = L"池体";
/// Marks a tank for the half sizes and for a picked entity.
inline constexpr wchar_t kTankSystem[] = L"池体系统";
inline constexpr wchar_t kWellNumber[] = L"管井编号";     ///< text
inline constexpr wchar_t kWellDiameter[] = L"井的直径";   ///< metres
inline constexpr wchar_t kTankLength[] = L"长度";         ///< millimetres
inline constexpr wchar_t kDiameter[] = L"管径";           ///< millimetres
inline constexpr wchar_t kMaterial[] = L"管材";           ///< text
inline constexpr wchar_t kSlope[] = L"坡度";              ///< number
inline constexpr wchar_t kStartElevation[] = L"起点标高"; ///< metres
inline constexpr wchar_t kEndElevation[] = L"终点标高";   ///< metres
inline constexpr wchar_t kFlow[] = L"水流方向";           ///< `kStartToEnd` or `kEndToStart`
/// Marks a temporary outflow of a pressure network by the value "0".
inline constexpr wchar_t kTemporaryOutflow[] = L"临时出流标志";

inline constexpr wchar_t kStartToEnd[] = L"SE"; ///< water runs from the entity's start to its end
inline constexpr wchar_t kEndToStart[] = L"ES"; ///< water runs from the entity's end to its start

} // namespace xdata

/// Reads the text under `key`; nonzero when the entity carries the key. A missing key leaves
/// `value` as it was. The sibling library declares the name as a writable text but never writes to
/// it.
template<class Subject>
int ReadXdata(const Subject& subject, const wchar_t* key, CString& value) {
    return GetXdata(subject, const_cast<wchar_t*>(key), value);
}

/// The text under `key`, empty when it is missing.
template<class Subject>
CString XdataText(const Subject& subject, const wchar_t* key) {
    CString value;
    ReadXdata(subject, key, value);
    return value;
}

/// The longest numeric prefix of a text as a double, 0.0 when there is none.
inline double NumberPrefix(const CString& text) {
    return platform_crt::wcstod(static_cast<const wchar_t*>(text), nullptr);
}

/// The integer prefix of a text, 0 when there is none.
inline int IntegerPrefix(const CString& text) {
    return _wtoi(static_cast<const wchar_t*>(text));
}

/// Sixteen hexadecimal digits and the closing null.
inline constexpr int kHandleTextSize = 17;

/// The entity's handle in hexadecimal text.
inline CString HandleText(const AcDbObject* object) {
    AcDbHandle handle;
    object->getAcDbHandle(handle);
    ACHAR buffer[kHandleTextSize];
    handle.getIntoAsciiBuffer(buffer);
    return CString(buffer);
}
