// Crowded random drawings: a search gives what its rules say word by word, to the last bit, with
// the plain scan and with the index.

#include "module/networks/LiteralGravity.h"
#include "gravity/GravityNetworkSearch.h"
#include "module/networks/NetworkDump.h"
#include "module/networks/RandomDrawing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::CandidateMode;
using tkvlt::GravityNetworkSearch;

/// How often a thing was met, so that a test can see that it met it at all.
struct Met {
    int searches = 0;
    int tooLong = 0;
    int success = 0;
    int cycles = 0;
    int merges = 0;
    int tanks = 0;
    int chains = 0; ///< segments of several pipes
    int sideJoins = 0;
    int paths = 0;
    int oneSided = 0;
    int twoSided = 0;
    int filled = 0; ///< searches on an object that held a network before

    void count(GravitySearchObject& network) {
        paths += network.pathSegs.GetSize() > 0 ? 1 : 0;
        for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
            merges += network.wells.GetAt(i).mergedEntities.length();
            tanks += network.wells.GetAt(i).isWell == 0 ? 1 : 0;
        }
        for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
            chains += network.segs.GetAt(i).pipeIds.length() > 1 ? 1 : 0;
        }
    }
};

struct Question {
    AcDbObjectId start;
    AcDbObjectId end;
    AcGePoint3d pick;
};

/// Result, flag and every field, as text.
std::string outcomeOf(int result, int abortFlag, const GravitySearchObject& network) {
    return std::to_string(result) + " " + std::to_string(abortFlag) + "\n" + dump(network);
}

std::string askLiteral(GravitySearchObject& network, const Question& question, Met& met) {
    LiteralGravity search(network, question.start, question.end, question.pick);
    try {
        const int result = search.run();
        met.success += result;
        met.cycles += search.abortFlag;
        met.sideJoins += search.sideJoins;
        return outcomeOf(result, search.abortFlag, network);
    } catch (const CInvalidArgException&) {
        return "exception\n" + dump(network);
    }
}

std::string askModule(GravitySearchObject& network, Question question, CandidateMode mode) {
    GravityNetworkSearch search(&network, question.start, question.end, question.pick, mode);
    search.takeBacksBeforeOutlook *= question.start.handle().low() % 2 == 0 ? 0 : 1;
    try {
        const int result = search.Run();
        return outcomeOf(result, search.abortFlag, network);
    } catch (const CInvalidArgException&) {
        return "exception\n" + dump(network);
    }
}

/// Asks the questions one after the other of one object, in each of the three ways.
void compare(const std::vector<Question>& questions, Met& met) {
    GravitySearchObject literal;
    GravitySearchObject plain;
    GravitySearchObject indexed;
    for (const Question& question : questions) {
        std::string expected;
        try {
            expected = askLiteral(literal, question, met);
        } catch (const LiteralGravity::TooManyWays&) {
            ++met.tooLong;
            return;
        }
        ASSERT_EQ(askModule(plain, question, CandidateMode::kPlainScan), expected);
        ASSERT_EQ(askModule(indexed, question, CandidateMode::kIndexed), expected);
        ++met.searches;
    }
    met.count(literal);
    met.filled += static_cast<int>(questions.size()) - 1;
}

/// Of a drawing every third entity is searched from. Every fifth search goes on from another one
/// on the same object.
void compareSearches(const std::vector<AcDbObjectId>& ids, std::uint32_t seed, Met& met) {
    const AcGePoint3d pick(12.0, 12.0, 0.0);
    for (std::size_t i = seed % 3; i < ids.size(); i += 3) {
        SCOPED_TRACE("start " + std::to_string(i));
        std::vector<Question> questions = {{ids[i], endFor(ids, i, seed), pick}};
        if ((i + seed) % 5 == 0) {
            const std::size_t next = (i * 5 + 2) % ids.size();
            questions.push_back({ids[next], endFor(ids, next, seed), pick});
        }
        ASSERT_NO_FATAL_FAILURE(compare(questions, met));
    }
}

std::string askModuleForSingle(AcDbObjectId pipe, CandidateMode mode) {
    AcDbObjectId none;
    AcGePoint3d origin;
    GravityNetworkSearch search(nullptr, none, none, origin, mode);
    search.takeBacksBeforeOutlook *= pipe.handle().low() % 2 == 0 ? 0 : 1;
    search.CollectEntitiesOnly();
    GravitySeg seg;
    const int result = search.BuildSinglePipeSeg(seg, pipe, kSewer);
    return std::to_string(result) + "\n" + dump(seg);
}

/// Each entity in its turn as the pipe of a stretch.
void compareSingles(const std::vector<AcDbObjectId>& ids, Met& met) {
    for (const AcDbObjectId& id : ids) {
        GravitySearchObject none;
        LiteralGravity search(none, {}, {}, {});
        GravitySeg seg;
        int result = 0;
        try {
            result = search.buildSingle(seg, id, kSewer);
        } catch (const LiteralGravity::TooManyWays&) {
            ++met.tooLong;
            continue;
        }
        const std::string expected = std::to_string(result) + "\n" + dump(seg);
        ASSERT_EQ(askModuleForSingle(id, CandidateMode::kPlainScan), expected);
        ASSERT_EQ(askModuleForSingle(id, CandidateMode::kIndexed), expected);
        ++met.searches;
        met.oneSided += result == 2 ? 1 : 0;
        met.twoSided += result == 1 ? 1 : 0;
    }
}

/// Flat and hilly drawings, about the origin and far from it, with each length setting.
TEST(LiteralGravityTest, SearchGivesWhatItsRulesSayWordByWord) {
    Met met;
    DrawingBuilder drawing;
    for (std::uint32_t seed = 0; seed < 4000; ++seed) {
        SCOPED_TRACE("drawing " + std::to_string(seed));
        drawing.startAnew();
        drawing.setLengthMode(static_cast<int>(seed % 3));
        const bool isFar = seed / 6 % 4 == 3;
        const Motion motion{.shiftX = isFar ? 500000.0 : 0.0,
                            .shiftY = isFar ? 3400000.0 : 0.0,
                            .relief = seed / 3 % 2 == 0 ? 0 : 3};
        const std::vector<AcDbObjectId> ids = RandomDrawing(50000 + seed).draw(drawing, motion);
        ASSERT_NO_FATAL_FAILURE(compareSearches(ids, seed, met));
        if (seed % 4 == 0) {
            ASSERT_NO_FATAL_FAILURE(compareSingles(ids, met));
        }
    }
    EXPECT_LT(met.tooLong, met.searches / 100);
    EXPECT_GT(met.success, 4000);
    EXPECT_GT(met.cycles, 4000);
    EXPECT_GT(met.merges, 4000);
    EXPECT_GT(met.tanks, 1000);
    EXPECT_GT(met.chains, 4000);
    EXPECT_GT(met.sideJoins, 4000);
    EXPECT_GT(met.paths, 1000);
    EXPECT_GT(met.filled, 2000);
    EXPECT_GT(met.oneSided, 2000);
    EXPECT_GT(met.twoSided, 2000);
}

} // namespace
} // namespace module_tests
