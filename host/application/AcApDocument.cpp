#include "application/AcApDocument.h"

#include "platform/Encoding.h"

#include <algorithm>

AcApDocument::AcApDocument(std::unique_ptr<AcDbDatabase> database, std::string path)
    : database_(std::move(database)) {
    setPath(path);
}

void AcApDocument::setPath(const std::string& path) {
    fileName_ = CString(host_text::fromUtf8(path));
    const std::size_t folder = path.find_last_of("/\\");
    const std::string name = folder == std::string::npos ? path : path.substr(folder + 1);
    title_ = name.empty() ? CString(L"Drawing") : CString(host_text::fromUtf8(name));
}

AcApDocument::~AcApDocument() = default;

AcAp::DocLockMode AcApDocument::lockMode() const {
    if (locks_.empty()) {
        return AcAp::kNotLocked;
    }
    // From the weakest to the strongest.
    constexpr AcAp::DocLockMode kOrder[] = {
        AcAp::kNone,  AcAp::kNotLocked, AcAp::kRead, AcAp::kAutoWrite, AcAp::kProtectedAutoWrite,
        AcAp::kWrite, AcAp::kXWrite};
    const auto rank = [&](AcAp::DocLockMode mode) {
        return std::find(std::begin(kOrder), std::end(kOrder), mode) - std::begin(kOrder);
    };
    return *std::max_element(locks_.begin(), locks_.end(),
                             [&](auto a, auto b) { return rank(a) < rank(b); });
}
