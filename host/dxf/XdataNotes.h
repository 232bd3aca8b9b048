#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string_view>
#include <vector>

namespace host_dxf {

/// Where the extended data of a drawing's objects stand in its file, and the first text of each
/// section: what is asked for most is then one line to read, wherever it stands among the others.
///
/// A note takes two bytes for each section and eight for the object. Objects that carry the same
/// applications in the same order share the list of these. A text that an application says again
/// soon after, as of a system or a material, is noted by a number of its own and need not be looked
/// up in the file at all.
class XdataNotes {
public:
    /// One section, in file order.
    struct Section {
        std::uint32_t application; ///< number of the application
        std::size_t text; ///< of the first text, from where the object's data begin; 0 for none
        std::string_view bytes = {}; ///< the text itself, which outlives the notes
    };
    enum class Outcome {
        NoSection, ///< the application is not there
        NoText,    ///< its first section has no text
        Text,
        RepeatedText,
        Unknown ///< it is there, and its text lies too far off to be noted
    };
    struct Finding {
        Outcome outcome;
        std::size_t
            text; ///< of Text, from where the object's data begin; of RepeatedText its number
    };

    /// Notes an object whose data begin `begin` bytes behind the object itself. Gives the number
    /// of the note, never 0.
    std::uint32_t add(std::uint32_t begin, std::span<const Section> sections);
    /// What `add` was given. `note` is a number that it gave.
    std::uint32_t beginOf(std::uint32_t note) const;
    /// The first section of an application.
    Finding find(std::uint32_t note, std::uint32_t application) const {
        const std::size_t place = note - 1;
        std::size_t section = place + kSectionsPlace;
        for (const std::uint32_t each : lists_[longAt(place + kListPlace)]) {
            if (each == application) {
                return findingOf(notes_[section]);
            }
            ++section;
        }
        return {Outcome::NoSection, 0};
    }
    /// The text that has this number.
    std::string_view repeatedText(std::size_t number) const { return repeated_[number]; }

private:
    using Applications = std::vector<std::uint32_t>;
    /// A text that an application said lately, and its number once it has said it again.
    struct Said {
        std::string_view bytes;
        std::uint16_t noted = 0;
    };
    /// So many suffice where the entities of a few systems stand mixed.
    static constexpr std::size_t kSaid = 4;
    struct LatelySaid {
        std::array<Said, kSaid> texts;
        std::size_t oldest = 0;
    };

    /// Where the list and the sections stand in a note.
    static constexpr std::size_t kListPlace = 2;
    static constexpr std::size_t kSectionsPlace = 4;
    /// What stands for a section: the place of its text, or one of these, or from the third on the
    /// number of a repeated text.
    static constexpr std::uint16_t kNoText = 0;
    static constexpr std::uint16_t kTooFar = 0x7FFF;
    static constexpr std::uint16_t kFirstRepeated = 0x8000;

    static Finding findingOf(std::uint16_t noted) {
        if (noted >= kFirstRepeated) {
            return {Outcome::RepeatedText, static_cast<std::size_t>(noted - kFirstRepeated)};
        }
        if (noted == kNoText) {
            return {Outcome::NoText, 0};
        }
        return {noted == kTooFar ? Outcome::Unknown : Outcome::Text, noted};
    }

    std::uint16_t noted(const Section& section);

    std::uint32_t listOf(std::span<const Section> sections);
    std::uint32_t longAt(std::size_t place) const {
        return notes_[place] | static_cast<std::uint32_t>(notes_[place + 1]) << 16;
    }
    void addLong(std::uint32_t number);

    std::vector<Applications> lists_;
    std::map<Applications, std::uint32_t> numberOfList_;
    std::uint32_t lastList_ = 0;
    std::vector<LatelySaid> said_; ///< by application
    std::vector<std::string_view> repeated_;
    /// For each object where its data begin and its list, two halves each, then the sections.
    std::vector<std::uint16_t> notes_;
};

} // namespace host_dxf
