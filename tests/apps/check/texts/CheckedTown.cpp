#include "CheckedTown.h"

namespace check_tests {

PipeTexts soundPipe() {
    PipeTexts texts;
    texts.diameter = L"300";
    texts.flow = L"SE";
    texts.startElevation = L"10";
    texts.endElevation = L"10";
    texts.slope = L"0";
    texts.material = L"PE";
    return texts;
}

AcDbObjectId StreetTest::well(int n, const WellTexts& texts) {
    return drawing.addWell({33.0 * n, 0.0, 0.0}, texts);
}

AcDbObjectId StreetTest::well(int n) {
    const std::wstring number = std::to_wstring(n);
    WellTexts texts;
    texts.number = number.c_str();
    return well(n, texts);
}

AcDbObjectId StreetTest::pipe(int n, const PipeTexts& texts) {
    return drawing.addPipe({33.0 * n + 0.5, 0.0, 0.0}, {33.0 * n + 32.5, 0.0, 0.0}, texts);
}

std::vector<pipenet::Finding> StreetTest::findings(const std::string& code) {
    std::vector<pipenet::Finding> found;
    for (const pipenet::Finding& each : report().findings) {
        if (each.code == code) {
            found.push_back(each);
        }
    }
    return found;
}

pipenet::Finding StreetTest::finding(const std::string& code) {
    const std::vector<pipenet::Finding> found = findings(code);
    EXPECT_EQ(found.size(), 1U) << code;
    return found.empty() ? pipenet::Finding() : found.front();
}

} // namespace check_tests
