// A file of linetypes: each name in it, and a name that is not, is found, malformed or missing.

#include "Demand.h"

#include "database/LinetypeFile.h"

#include <cmath>
#include <cstdint>
#include <string>

using fuzz::demand;

namespace {

constexpr std::size_t kFewestDashes = 2;
constexpr std::size_t kMostDashes = 12;
/// A look-up reads the file from its beginning, so that looking all names up takes the square.
constexpr int kMostLookUps = 8;

void lookUp(const std::wstring& file, const std::wstring& name) {
    host_db::LinetypeDefinition definition;
    const Acad::ErrorStatus status = host_db::findLinetype(file, name, definition);
    demand(status == Acad::eOk || status == Acad::eKeyNotFound || status == Acad::eInvalidInput,
           "a look-up gives one of its three answers");
    if (status != Acad::eOk) {
        demand(definition.name.empty() && definition.dashes.empty(), "nothing is half read");
        return;
    }
    demand(definition.dashes.size() >= kFewestDashes && definition.dashes.size() <= kMostDashes,
           "a definition has two to twelve dashes");
    demand(!(definition.dashes.front().length < 0.0), "the first dash is no gap");
    for (const auto& dash : definition.dashes) {
        demand(std::isfinite(dash.length), "a dash has a length");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring file =
        host_db::decodeLinetypeFile({reinterpret_cast<const char*>(data), size});
    lookUp(file, L"no such name");
    std::size_t star = file.find(L'*');
    for (int i = 0; i < kMostLookUps && star != std::wstring::npos; ++i) {
        const std::size_t end = file.find_first_of(L",\r\n", star);
        lookUp(file, file.substr(star + 1, end == std::wstring::npos ? end : end - star - 1));
        star = file.find(L'*', star + 1);
    }
    return 0;
}
