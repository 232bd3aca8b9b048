#include "frame/FlowKind.h"

#include <optional>

namespace {

const wchar_t* const kPipeSystemsFile = L"\\SysCon\\PipeLineSetting.Kdp";
const wchar_t* const kFlowKindKey = L"\\GroupType";
const wchar_t* const kFlagKey = L"\\GroupFlag";
const wchar_t* const kPressureFlow = L"压力流";
const wchar_t* const kGravityFlow = L"重力流";

enum FlowKindCode { kUnknown = -1, kPressure = 0, kGravity = 1 };

int OpenPipeSystems(CKDPEx& settings) {
    return settings.Open(GetSystemPath() + kPipeSystemsFile);
}

/// Key of the first entry in file order whose value is `systemName`. With `readMustSucceed` an
/// entry counts only when its value could be read; without it an unread value is an empty text.
std::optional<CString> FindEntry(CKDPEx& settings, const CString& systemName,
                                 bool readMustSucceed) {
    for (int i = 0; i < settings.m_nSubKeyNum; ++i) {
        const CString key = settings.m_SubKeyArr[i];
        CString value;
        const bool wasRead = settings.GetSubValue(key, value) != 0;
        if ((wasRead || !readMustSucceed) && value.Compare(systemName) == 0) {
            return key;
        }
    }
    return std::nullopt;
}

} // namespace

int PelGetDirectionSytle(CString systemName) {
    if (systemName.IsEmpty()) {
        return kUnknown;
    }
    CKDPEx settings;
    if (OpenPipeSystems(settings) == 0) {
        return kUnknown;
    }
    const std::optional<CString> entry = FindEntry(settings, systemName, false);
    if (!entry) {
        return kUnknown;
    }
    CString kind;
    settings.GetSubValue(*entry + kFlowKindKey, kind);
    if (kind.Compare(kPressureFlow) == 0) {
        return kPressure;
    }
    return kind.Compare(kGravityFlow) == 0 ? kGravity : kUnknown;
}

int PelGetSystemFlag(CString& flag, const CString& systemName) {
    CKDPEx settings;
    if (OpenPipeSystems(settings) == 0) {
        return 0;
    }
    const std::optional<CString> entry = FindEntry(settings, systemName, true);
    if (!entry) {
        return 0;
    }
    return settings.GetSubValue(*entry + kFlagKey, flag) != 0 ? 1 : 0;
}
