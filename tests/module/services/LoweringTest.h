#pragma once

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <map>
#include <string>

namespace module_tests {

/// The texts of a pipe's two heights.
struct HeightTexts {
    std::string start; ///< 起点标高
    std::string end;   ///< 终点标高

    bool operator==(const HeightTexts&) const = default;
};
void PrintTo(const HeightTexts& texts, std::ostream* out);

/// A drawing whose pipes sink. All pipes are 1000 mm wide unless a test says otherwise, so that a
/// pipe's top is one metre above its height.
class LoweringTest : public DrawingTest {
protected:
    /// A pipe of the sewer. Its texts are remembered for `expectUnchanged`.
    AcDbObjectId pipe(const AcGePoint3d& from, const AcGePoint3d& to, const wchar_t* flow,
                      const wchar_t* startElevation, const wchar_t* endElevation,
                      const wchar_t* diameter = L"1000");
    AcDbObjectId remembered(AcDbObjectId pipe);

    static HeightTexts heights(const AcDbObjectId& pipe);
    /// The pipe has the texts that it was drawn with.
    void expectUnchanged(const AcDbObjectId& pipe);
    /// Every pipe has.
    void expectNothingChanged();

private:
    std::map<AcDbObjectId, HeightTexts> drawn_;
};

} // namespace module_tests
