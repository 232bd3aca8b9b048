#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace host_dxf {

/// Where the extended data of a drawing's objects stand in its file, and the first text of each
/// section: what is asked for most is then one line to read, wherever it stands among the others.
///
/// A note takes two bytes for each section and eight for the object. Objects that carry the same
/// applications in the same order share the list of these.
class XdataNotes {
public:
    /// One section, in file order.
    struct Section {
        std::uint32_t application; ///< number of the application
        std::size_t text; ///< of the first text, from where the object's data begin; 0 for none
    };
    enum class Outcome {
        NoSection, ///< the application is not there
        NoText,    ///< its first section has no text
        Text,
        Unknown ///< it is there, and its text lies too far off to be noted
    };
    struct Finding {
        Outcome outcome;
        std::size_t text; ///< of Text, from where the object's data begin
    };

    /// Notes an object whose data begin `begin` bytes behind the object itself. Gives the number
    /// of the note, never 0.
    std::uint32_t add(std::uint32_t begin, std::span<const Section> sections);
    /// What `add` was given. `note` is a number that it gave.
    std::uint32_t beginOf(std::uint32_t note) const;
    /// The first section of an application.
    Finding find(std::uint32_t note, std::uint32_t application) const;

private:
    using Applications = std::vector<std::uint32_t>;

    std::uint32_t listOf(std::span<const Section> sections);
    std::uint32_t longAt(std::size_t place) const;
    void addLong(std::uint32_t number);

    std::vector<Applications> lists_;
    std::map<Applications, std::uint32_t> numberOfList_;
    std::uint32_t lastList_ = 0;
    /// For each object where its data begin and its list, two halves each, then the sections.
    std::vector<std::uint16_t> notes_;
};

} // namespace host_dxf
