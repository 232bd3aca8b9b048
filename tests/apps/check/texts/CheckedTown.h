#pragma once

#include "CheckDrawing.h"
#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <string>
#include <vector>

namespace check_tests {

using module_tests::Ids;
using module_tests::PipeTexts;
using module_tests::WellTexts;

/// Texts of a pipe with which nothing is amiss as long as it is level.
PipeTexts soundPipe();

/// A test with a street of wells 1 m wide, 33 m apart on the x axis: well number n stands at
/// x = 33 n. A pipe from rim to rim is 32 m long, one from centre to centre 33 m.
class StreetTest : public module_tests::DrawingTest {
protected:
    /// The n-th well, with its place as its number.
    AcDbObjectId well(int n, const WellTexts& texts);
    AcDbObjectId well(int n);
    /// A pipe from the rim of the n-th well to that of the next.
    AcDbObjectId pipe(int n, const PipeTexts& texts);

    static pipenet::CheckReport report() { return pipenet::checkDrawing(""); }
    /// The findings of a fresh check that have this code.
    static std::vector<pipenet::Finding> findings(const std::string& code);
    /// The one finding with this code; a failure when there are more or fewer.
    static pipenet::Finding finding(const std::string& code);
};

} // namespace check_tests
