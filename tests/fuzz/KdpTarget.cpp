// A settings file: refused, or all its entries can be read, written and read back.

#include "Demand.h"
#include "KdpDocument.h"

#include "platform/Encoding.h"

#include <cstdint>
#include <string>

using fuzz::demand;
using siblings::KdpDocument;

namespace {

/// A text as it comes from the platform: always UTF-8, whatever the bytes.
std::string textOf(std::string_view bytes) {
    return host_text::toUtf8(host_text::fromUtf8(bytes));
}

void setAndReadBack(KdpDocument document, const std::string& key, const std::string& value) {
    document.set(key, value);
    const std::optional<std::string> written = document.bytes();
    if (!written) {
        return;
    }
    const std::optional<KdpDocument> again = KdpDocument::parse(*written);
    demand(again.has_value(), "what was written can be read");
    const std::string* const found = again->find(key);
    demand(found != nullptr && *found == value, "a value that was written reads back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::optional<KdpDocument> document = KdpDocument::parse(bytes);
    if (!document) {
        return 0;
    }
    demand(document->bytes() == std::string(bytes), "an unchanged file keeps its bytes");
    for (const std::string& key : document->topLevelKeys()) {
        demand(document->find(key) != nullptr, "a listed key has a value");
        setAndReadBack(*document, key, textOf(bytes.substr(0, 40)));
    }
    const std::size_t half = size / 2;
    setAndReadBack(*document, textOf(bytes.substr(0, half)), textOf(bytes.substr(half)));
    return 0;
}
