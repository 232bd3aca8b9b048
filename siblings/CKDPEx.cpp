#include "CKDPEx.h"

#include "KdpDocument.h"
#include "platform/Encoding.h"
#include "platform/TextToNumber.h"
#include "SettingsPath.h"
#include "WholeFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace {

std::string toUtf8(const CString& text) {
    return host_text::toUtf8(text.view());
}

std::string pathOf(const CString& path) {
    return siblings::nativePath(toUtf8(path));
}

} // namespace

CKDPEx::CKDPEx() : document_(std::make_unique<siblings::KdpDocument>()) {}

CKDPEx::~CKDPEx() = default;

int CKDPEx::Open(CString path) {
    *document_ = siblings::KdpDocument();
    const auto bytes = siblings::readWholeFile(pathOf(path));
    auto document = bytes ? siblings::KdpDocument::parse(*bytes) : std::nullopt;
    if (document) {
        *document_ = std::move(*document);
    }
    listTopLevelKeys();
    return document ? 1 : 0;
}

int CKDPEx::Save(CString path) {
    const auto bytes = document_->bytes();
    return bytes && siblings::replaceWholeFile(pathOf(path), *bytes) ? 1 : 0;
}

int CKDPEx::GetSubValue(CString key, CString& value) const {
    const std::string* found = document_->find(toUtf8(key));
    if (found == nullptr) {
        return 0;
    }
    value = CString(host_text::fromUtf8(*found));
    return 1;
}

int CKDPEx::GetSubValue(CString key, int& value) const {
    CString text;
    if (GetSubValue(std::move(key), text) == 0) {
        return 0;
    }
    value = _wtoi(text);
    return 1;
}

int CKDPEx::GetSubValue(CString key, double& value) const {
    CString text;
    if (GetSubValue(std::move(key), text) == 0) {
        return 0;
    }
    value = platform_crt::wcstod(text, nullptr);
    return 1;
}

void CKDPEx::SetSubValueW(CString key, CString value) {
    if (document_->set(toUtf8(key), toUtf8(value))) {
        listTopLevelKeys();
    }
}

void CKDPEx::SetSubValueW(CString key, int value) {
    SetSubValueW(std::move(key), CString(std::to_wstring(value)));
}

void CKDPEx::SetSubValueW(CString key, double value) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    const std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
    SetSubValueW(std::move(key), CString(host_text::fromUtf8(digits)));
}

void CKDPEx::listTopLevelKeys() {
    constexpr std::size_t limit = std::numeric_limits<short>::max();
    const auto keys = document_->topLevelKeys();
    m_SubKeyArr.RemoveAll();
    for (const std::string& key : keys) {
        m_SubKeyArr.Add(CString(host_text::fromUtf8(key)));
    }
    m_nSubKeyNum = static_cast<short>(std::min(keys.size(), limit));
}
