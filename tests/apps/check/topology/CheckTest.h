#pragma once

#include "CheckDrawing.h"
#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace check_tests {

using module_tests::DrawingTest;
using module_tests::Ids;
using pipenet::CheckedNetwork;
using pipenet::CheckReport;
using pipenet::Finding;
using pipenet::Severity;

/// Up to this gap the ends of two gravity pipes join: drawing scale 1, break distance 0.1.
inline constexpr double kSnap = 0.44;

/// A drawing that is checked. Only the topological findings are looked at.
class CheckTest : public DrawingTest {
protected:
    /// Checks the drawing as it stands.
    void check(const std::string& onlySystem = {}) { report = pipenet::checkDrawing(onlySystem); }

    /// Checks, and expects this one topological finding alone; returns it, or an empty one.
    Finding only(const std::string& code, Severity severity);
    /// Checks, and expects no topological finding.
    void expectNone();

    std::vector<Finding> found(const std::string& code) const;
    /// The codes of all topological findings, in the report's order.
    std::vector<std::string> codes() const;

    CheckReport report;
};

/// Whether the entities stand around a ring in this order, wherever it begins and whichever way it
/// runs.
::testing::AssertionResult sameRing(const Ids& actual, const Ids& expected);

/// The measured value, the limit and the unit of a finding.
void expectMeasured(const Finding& finding, double measured, double limit, const char* unit);

/// The entities in any order.
std::set<AcDbObjectId> setOf(const Ids& ids);

} // namespace check_tests
