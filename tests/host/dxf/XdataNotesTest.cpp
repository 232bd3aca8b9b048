#include "dxf/XdataNotes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using host_dxf::XdataNotes;

namespace {

using Outcome = XdataNotes::Outcome;
using Sections = std::vector<XdataNotes::Section>;

std::pair<Outcome, std::size_t> found(const XdataNotes& notes, std::uint32_t note,
                                      std::uint32_t application) {
    const XdataNotes::Finding finding = notes.find(note, application);
    return {finding.outcome, finding.text};
}

const std::pair<Outcome, std::size_t> kNoSection{Outcome::NoSection, 0};
const std::pair<Outcome, std::size_t> kNoText{Outcome::NoText, 0};

std::pair<Outcome, std::size_t> textAt(std::size_t place) {
    return {Outcome::Text, place};
}

TEST(XdataNotes, TellWhereTheTextOfEachSectionStands) {
    XdataNotes notes;
    const std::uint32_t note = notes.add(70'000, Sections{{7, 12}, {3, 0}, {9, 300}});
    EXPECT_NE(note, 0U);
    EXPECT_EQ(notes.beginOf(note), 70'000U);
    EXPECT_EQ(found(notes, note, 7), textAt(12));
    EXPECT_EQ(found(notes, note, 3), kNoText);
    EXPECT_EQ(found(notes, note, 9), textAt(300));
    EXPECT_EQ(found(notes, note, 4), kNoSection);
}

TEST(XdataNotes, KeepObjectsApartWhateverTheyCarry) {
    XdataNotes notes;
    const std::uint32_t both = notes.add(1, Sections{{1, 11}, {2, 22}});
    const std::uint32_t turned = notes.add(0xFFFFFFFF, Sections{{2, 5}, {1, 6}});
    const std::uint32_t none = notes.add(3, Sections{});
    const std::uint32_t again = notes.add(4, Sections{{1, 33}, {2, 44}});
    EXPECT_EQ(found(notes, both, 1), textAt(11));
    EXPECT_EQ(found(notes, both, 2), textAt(22));
    EXPECT_EQ(found(notes, turned, 1), textAt(6));
    EXPECT_EQ(found(notes, turned, 2), textAt(5));
    EXPECT_EQ(found(notes, none, 1), kNoSection);
    EXPECT_EQ(found(notes, again, 1), textAt(33));
    EXPECT_EQ(found(notes, again, 2), textAt(44));
    EXPECT_EQ(notes.beginOf(both), 1U);
    EXPECT_EQ(notes.beginOf(turned), 0xFFFFFFFFU);
    EXPECT_EQ(notes.beginOf(none), 3U);
    EXPECT_EQ(notes.beginOf(again), 4U);
}

TEST(XdataNotes, OfTwoSectionsOfOneApplicationTheFirstCounts) {
    XdataNotes notes;
    const std::uint32_t note = notes.add(1, Sections{{5, 0}, {5, 20}});
    EXPECT_EQ(found(notes, note, 5), kNoText);
}

TEST(XdataNotes, ATextThatAnApplicationSaysAgainHasANumber) {
    XdataNotes notes;
    const std::uint32_t first = notes.add(1, Sections{{1, 10, "PVC"}, {2, 20, "300"}});
    const std::uint32_t second = notes.add(1, Sections{{1, 11, "PVC"}, {2, 21, "PVC"}});
    const std::uint32_t third = notes.add(1, Sections{{1, 12, "PE"}, {2, 22, "300"}});
    const std::uint32_t fourth = notes.add(1, Sections{{1, 13, "PVC"}, {2, 23, ""}});
    EXPECT_EQ(found(notes, first, 1), textAt(10));
    EXPECT_EQ(found(notes, first, 2), textAt(20));
    EXPECT_EQ(notes.find(second, 1).outcome, Outcome::RepeatedText);
    EXPECT_EQ(notes.repeatedText(notes.find(second, 1).text), "PVC");
    EXPECT_EQ(found(notes, second, 2), textAt(21));
    EXPECT_EQ(found(notes, third, 1), textAt(12));
    EXPECT_EQ(notes.find(third, 2).outcome, Outcome::RepeatedText);
    EXPECT_EQ(notes.repeatedText(notes.find(third, 2).text), "300");
    EXPECT_EQ(notes.find(fourth, 1).text, notes.find(second, 1).text);
    EXPECT_EQ(found(notes, fourth, 2), textAt(23));
}

// Each text is said twice in a row.
TEST(XdataNotes, MoreRepeatedTextsThanThereAreNumbersAreNotedByTheirPlace) {
    constexpr std::size_t numbers = 32'768;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < numbers + 10; ++i) {
        texts.push_back(std::to_string(i));
    }
    XdataNotes notes;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        notes.add(1, Sections{{1, 5, texts[i]}});
        const std::uint32_t again = notes.add(1, Sections{{1, 6, texts[i]}});
        if (i >= numbers) {
            EXPECT_EQ(found(notes, again, 1), textAt(6));
        } else {
            ASSERT_EQ(notes.find(again, 1).outcome, Outcome::RepeatedText);
            EXPECT_EQ(notes.repeatedText(notes.find(again, 1).text), texts[i]);
        }
    }
}

TEST(XdataNotes, ATextTooFarOffIsUnknown) {
    XdataNotes notes;
    const std::uint32_t note =
        notes.add(1, Sections{{1, 32'766}, {2, 32'767}, {3, 32'768}, {4, 131'072}});
    EXPECT_EQ(found(notes, note, 1), textAt(32'766));
    for (const std::uint32_t application : {2U, 3U, 4U}) {
        EXPECT_EQ(found(notes, note, application).first, Outcome::Unknown);
    }
}

} // namespace
