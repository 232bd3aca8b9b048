#include "CheckTest.h"

#include <algorithm>

namespace check_tests {

namespace {

bool isTopological(const Finding& finding) {
    static const std::set<std::string> codes{
        "pipe-too-short",    "dead-end",     "gap-at-joint",
        "angle-at-joint",    "cycle",        "end-in-foreign-well",
        "crossing-heights",  "no-network",   "crossing-without-joint",
        "well-without-pipe", "merged-wells", "turned-run"};
    return codes.count(finding.code) != 0;
}

} // namespace

std::vector<std::string> CheckTest::codes() const {
    std::vector<std::string> codes;
    for (const Finding& finding : report.findings) {
        if (isTopological(finding)) {
            codes.push_back(finding.code);
        }
    }
    return codes;
}

std::vector<Finding> CheckTest::found(const std::string& code) const {
    std::vector<Finding> findings;
    std::copy_if(report.findings.begin(), report.findings.end(), std::back_inserter(findings),
                 [&](const Finding& finding) { return finding.code == code; });
    return findings;
}

Finding CheckTest::only(const std::string& code, Severity severity) {
    check();
    EXPECT_EQ(codes(), std::vector<std::string>{code});
    const std::vector<Finding> findings = found(code);
    if (findings.empty()) {
        return {};
    }
    EXPECT_STREQ(severityName(findings.front().severity), severityName(severity));
    EXPECT_FALSE(findings.front().sentence.empty());
    return findings.front();
}

void CheckTest::expectNone() {
    check();
    EXPECT_EQ(codes(), std::vector<std::string>{});
}

::testing::AssertionResult sameRing(const Ids& actual, const Ids& expected) {
    if (actual.size() == expected.size()) {
        Ids turned = expected;
        for (int way = 0; way < 2; ++way) {
            for (std::size_t i = 0; i < turned.size(); ++i) {
                if (turned == actual) {
                    return ::testing::AssertionSuccess();
                }
                std::rotate(turned.begin(), turned.begin() + 1, turned.end());
            }
            std::reverse(turned.begin(), turned.end());
        }
    }
    return ::testing::AssertionFailure() << ::testing::PrintToString(actual) << " is not around "
                                         << ::testing::PrintToString(expected);
}

void expectMeasured(const Finding& finding, double measured, double limit, const char* unit) {
    ASSERT_TRUE(finding.measured);
    ASSERT_TRUE(finding.limit);
    EXPECT_NEAR(*finding.measured, measured, 1e-9);
    EXPECT_NEAR(*finding.limit, limit, 1e-9);
    EXPECT_EQ(finding.unit, unit);
}

std::set<AcDbObjectId> setOf(const Ids& ids) {
    return {ids.begin(), ids.end()};
}

} // namespace check_tests
