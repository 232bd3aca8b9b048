#pragma once

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include "application/HostRecorder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace module_tests {

using Lines = std::vector<std::string>;
/// Start and end of a line.
using Ends = std::pair<AcGePoint3d, AcGePoint3d>;

/// A drawing whose host is listened to. What a test takes from the host and does not give back
/// fails it.
class UtilitiesTest : public ::testing::Test {
protected:
    void SetUp() override { before_ = host::liveCounts(); }
    void TearDown() override;

    /// What happened since the last call of `forget`, one line an event.
    Lines events() const;
    /// The events that begin with `word`.
    Lines events(const std::string& word) const;
    void forget() { recorder_.clear(); }

    void setVariable(const wchar_t* name, int value);
    int variable(const wchar_t* name);

    std::string handleOf(const AcDbObjectId& id) const;
    AcDbObjectId addLine(const AcGePoint3d& from, const AcGePoint3d& to);
    Ends endsOf(const AcDbObjectId& line) const;
    bool isErased(const AcDbObjectId& id) const { return id.isErased(); }
    /// Every entity of model space that is not erased, in drawing order.
    Ids entities() const;
    /// A selection set of these; to be freed.
    void select(const Ids& ids, ads_name set) const;

    DrawingBuilder drawing;

private:
    host::HostRecorder recorder_;
    host::LiveCounts before_;
};

::testing::AssertionResult sameEnds(const Ends& actual, const AcGePoint3d& start,
                                    const AcGePoint3d& end);

} // namespace module_tests
