#include "records/PerDefinition.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace module_tests {
namespace {

using tkvlt::PerDefinition;

/// Ids need no drawing to be told apart.
AcDbObjectId definition(std::int64_t number) {
    return AcDbObjectId::fromOldId(number);
}

class PerDefinitionTest : public ::testing::Test {
protected:
    std::string of(const AcDbObjectId& id, const std::string& finding) {
        return findings.Of(id, [&] {
            ++asked;
            return finding;
        });
    }

    PerDefinition<std::string> findings;
    int asked = 0;
};

TEST_F(PerDefinitionTest, EachIsAskedForOnceAndKeepsItsOwn) {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(of(definition(16), "a valve"), "a valve");
        EXPECT_EQ(of(definition(16), "anything else"), "a valve");
        EXPECT_EQ(of(definition(32), "a meter"), "a meter");
    }
    EXPECT_EQ(asked, 2);
}

TEST_F(PerDefinitionTest, TheNullIdIsOneLikeOthers) {
    EXPECT_EQ(of({}, "none"), "none");
    EXPECT_EQ(of({}, "other"), "none");
    EXPECT_EQ(asked, 1);
}

} // namespace
} // namespace module_tests
