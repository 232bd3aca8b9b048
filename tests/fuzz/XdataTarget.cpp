// Extended data and xrecords from any chain: refused, or kept, saved and read back.

#include "ChainFromBytes.h"
#include "Demand.h"
#include "FuzzDrawing.h"

#include "application/HostRecorder.h"
#include "dxf/LoadDxf.h"
#include "dxf/SaveDxf.h"
#include "TKVltSearchModule18.h"

namespace {

using fuzz::ByteReader;
using fuzz::Chain;
using fuzz::demand;

int xdataCode(ByteReader& bytes) {
    constexpr int codes[] = {1001, 1001, 1001, 1000, 1000, 1002, 1003, 1005,
                             1010, 1011, 1040, 1041, 1070, 1071, 1004, -3};
    const int choice = bytes.below(18);
    return choice < 16 ? codes[choice] : bytes.number();
}

/// Applications count only when they are registered.
void putApplications(resbuf* chain, ByteReader& bytes) {
    constexpr const wchar_t* names[] = {L"管径", L"管道系统", L"水流方向", L"NOBODY"};
    for (; chain != nullptr; chain = chain->rbnext) {
        if (chain->restype == 1001 && !bytes.oneIn(8)) {
            acutUpdString(names[bytes.below(4)], chain->resval.rstring);
        }
    }
}

void askXdata(const AcDbObjectId& id) {
    AcDbEntity* entity = nullptr;
    demand(acdbOpenAcDbEntity(entity, id, AcDb::kForRead) == Acad::eOk, "the entity opens");
    const Chain all(entity->xData());
    const Chain one(entity->xData(L"管径"));
    entity->close();
    CString text;
    PelGetXRecord(L"D", L"R", text);
}

void readBack(const std::string& bytes) {
    std::string error;
    const auto again = host_dxf::loadDrawingFromBytes(bytes, "again.dxf", error);
    demand(again != nullptr, "what was saved can be read");
    std::string twice;
    demand(host_dxf::drawingBytes(*again, "again.dxf", twice, error) && twice == bytes,
           "what was read is saved as it stood");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static module_tests::DrawingBuilder builder;
    ByteReader bytes(data, size);
    const Chain chain = fuzz::chainFromBytes(bytes, xdataCode);
    putApplications(chain.get(), bytes);
    const CString value(bytes.text(40).c_str());
    const fuzz::FuzzDrawing drawing(builder, bytes);
    if (drawing.ids().empty()) {
        return 0;
    }
    const host::LiveCounts before = host::liveCounts();
    const AcDbObjectId id = drawing.ids().front();
    PelSetXdata(id, chain.get());
    SetXdata(id, L"管径", value);
    PelSetXRecord(L"D", L"R", value);
    askXdata(id);
    demand(host::liveCounts() == before, "what was taken from the host is given back");
    if (const std::string saved = drawing.saved(); saved.find("no finite") == std::string::npos) {
        readBack(saved);
    }
    return 0;
}
