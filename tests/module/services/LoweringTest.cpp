#include "module/services/LoweringTest.h"

#include "records/XdataKeys.h"

#include <ostream>

namespace module_tests {

void PrintTo(const HeightTexts& texts, std::ostream* out) {
    *out << '"' << texts.start << "\" / \"" << texts.end << '"';
}

AcDbObjectId LoweringTest::pipe(const AcGePoint3d& from, const AcGePoint3d& to, const wchar_t* flow,
                                const wchar_t* startElevation, const wchar_t* endElevation,
                                const wchar_t* diameter) {
    return remembered(drawing.addPipe(from, to,
                                      {.diameter = diameter,
                                       .flow = flow,
                                       .startElevation = startElevation,
                                       .endElevation = endElevation}));
}

AcDbObjectId LoweringTest::remembered(AcDbObjectId pipe) {
    drawn_[pipe] = heights(pipe);
    return pipe;
}

HeightTexts LoweringTest::heights(const AcDbObjectId& pipe) {
    return {utf8(XdataText(pipe, L"起点标高")), utf8(XdataText(pipe, L"终点标高"))};
}

void LoweringTest::expectUnchanged(const AcDbObjectId& pipe) {
    EXPECT_EQ(heights(pipe), drawn_.at(pipe));
}

void LoweringTest::expectNothingChanged() {
    for (const auto& [pipe, texts] : drawn_) {
        EXPECT_EQ(heights(pipe), texts);
    }
}

} // namespace module_tests
