// A selection by a filter, by a fence or both: nothing or a set that can be walked and is given
// back.

#include "ChainFromBytes.h"
#include "Demand.h"
#include "FuzzDrawing.h"

#include "application/HostRecorder.h"

namespace {

using fuzz::ByteReader;
using fuzz::Chain;
using fuzz::demand;

int filterCode(ByteReader& bytes) {
    constexpr int codes[] = {0, 2, 5, 6, 7, 8, 60, 62, 67, 410, -3, 1001, -4, -4, -4, 1000};
    const int choice = bytes.below(20);
    return choice < 16 ? codes[choice] : bytes.number();
}

/// Filters are made of a few words, which letters taken by chance hardly ever give.
void putWords(resbuf* chain, ByteReader& bytes) {
    constexpr const wchar_t* words[] = {L"<and", L"and>", L"<or",   L"or>",   L"<not",  L"not>",
                                        L"<xor", L"xor>", L"=",     L"<=",    L"&",     L"*",
                                        L"LINE", L"IN*",  L"[~A]#", L"管*,?", L"Model", L"0"};
    constexpr int count = sizeof words / sizeof words[0];
    for (; chain != nullptr; chain = chain->rbnext) {
        const bool isText = host_db::valueKind(chain->restype) == host_db::ValueKind::Text;
        if (isText && !bytes.oneIn(4)) {
            acutUpdString(words[bytes.below(count)], chain->resval.rstring);
        }
    }
}

void walkSet(const ads_name set) {
    Adesk::Int32 length = 0;
    demand(acedSSLength(set, &length) == RTNORM && length > 0,
           "a set that is given holds something");
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name entity;
        demand(acedSSName(set, i, entity) == RTNORM, "each member has a name");
    }
    demand(acedSSFree(set) == RTNORM, "a set can be given back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static module_tests::DrawingBuilder builder;
    ByteReader bytes(data, size);
    const bool byFence = bytes.oneIn(3);
    const Chain filter = fuzz::chainFromBytes(bytes, filterCode);
    putWords(filter.get(), bytes);
    const Chain fence = fuzz::chainFromBytes(bytes, [](ByteReader& from) {
        return from.oneIn(8) ? static_cast<int>(from.byte()) : RT3DPOINT;
    });
    const fuzz::FuzzDrawing drawing(builder, bytes);
    const host::LiveCounts before = host::liveCounts();
    ads_name set{};
    const int status = acedSSGet(byFence ? L"F" : L"X", byFence ? fence.get() : nullptr, nullptr,
                                 filter.get(), set);
    if (status == RTNORM) {
        walkSet(set);
    }
    demand(host::liveCounts() == before, "what was taken from the host is given back");
    return 0;
}
