#include "records/CandidateMode.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace module_tests {
namespace {

using tkvlt::CandidateMode;
using tkvlt::CandidateModeFromEnvironment;

/// Changes the variable as it likes; afterwards it is as it was.
class CandidateModes : public ::testing::Test {
protected:
    CandidateModes() {
        if (const char* value = std::getenv(kName)) {
            before_ = value;
        }
    }
    ~CandidateModes() override { before_ ? setenv(kName, before_->c_str(), 1) : unsetenv(kName); }

    static CandidateMode modeFor(const char* value) {
        setenv(kName, value, 1);
        return CandidateModeFromEnvironment();
    }

    static constexpr const char* kName = "TKVLT_CANDIDATES";

private:
    std::optional<std::string> before_;
};

TEST_F(CandidateModes, PlainAsksForThePlainScan) {
    EXPECT_EQ(modeFor("plain"), CandidateMode::kPlainScan);
}

TEST_F(CandidateModes, WithoutTheVariableThereIsTheIndex) {
    unsetenv(kName);
    EXPECT_EQ(CandidateModeFromEnvironment(), CandidateMode::kIndexed);
}

TEST_F(CandidateModes, AnyOtherTextAsksForTheIndex) {
    for (const char* text : {"", "indexed", "Plain", "plain ", "plai", "plainer"}) {
        EXPECT_EQ(modeFor(text), CandidateMode::kIndexed) << text;
    }
}

} // namespace
} // namespace module_tests
