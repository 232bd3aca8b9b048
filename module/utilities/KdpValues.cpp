#include "utilities/KdpValues.h"

namespace {

CString PathOf(const CString& file) {
    return GetSystemPath() + L"\\" + file;
}

template<typename Value>
int ReadValue(const CString& file, const CString& key, Value& value) {
    CKDPEx settings;
    return settings.Open(PathOf(file)) != 0 ? settings.GetSubValue(key, value) : 0;
}

template<typename Value>
int WriteValue(const CString& file, const CString& key, const Value& value) {
    const CString path = PathOf(file);
    CKDPEx settings;
    if (settings.Open(path) == 0) {
        return 0;
    }
    settings.SetSubValueW(key, value);
    settings.Save(path);
    return 1;
}

} // namespace

int PelGetKDPValue(CString file, CString key, CString& value) {
    return ReadValue(file, key, value);
}

int PelGetKDPValue(CString file, CString key, int& value) {
    return ReadValue(file, key, value);
}

int PelGetKDPValue(CString file, CString key, double& value) {
    return ReadValue(file, key, value);
}

int PelSetKDPValue(CString file, CString key, CString value) {
    return WriteValue(file, key, value);
}

int PelSetKDPValue(CString file, CString key, int value) {
    return WriteValue(file, key, value);
}

int PelSetKDPValue(CString file, CString key, double value) {
    return WriteValue(file, key, value);
}
