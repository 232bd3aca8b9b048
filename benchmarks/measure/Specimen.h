#pragma once

#include "measure/Truth.h"

#include "EmbeddedHost.h"

#include <filesystem>
#include <string>
#include <vector>

namespace benchmark_measure {

/// A drawing to measure with.
struct Specimen {
    std::string name;
    std::filesystem::path drawing;
    std::filesystem::path truth; ///< empty where it is `known`, as for an example
    Truth known;

    /// Whether its name is `kind`, a hyphen and a size.
    bool isOf(const std::string& kind) const {
        return name.starts_with(kind + "-") && name.find_first_of("0123456789") == kind.size() + 1;
    }
    bool isExample() const { return truth.empty(); }
};

/// The towns and grids of a folder, by name, and then the examples that come from real models.
std::vector<Specimen> findSpecimens(const std::filesystem::path& towns,
                                    const std::filesystem::path& examples);

/// A specimen as the current drawing of the process, with its truth.
class OpenSpecimen {
public:
    /// Throws std::runtime_error for a drawing or a truth that cannot be read.
    explicit OpenSpecimen(const Specimen& specimen);
    ~OpenSpecimen();
    OpenSpecimen(const OpenSpecimen&) = delete;
    OpenSpecimen& operator=(const OpenSpecimen&) = delete;

    const Truth& truth() const { return truth_; }
    AcApDocument* document() const { return document_; }
    /// The entity under a handle; throws std::runtime_error when there is none.
    AcDbObjectId entity(std::uint64_t handle) const;

private:
    AcApDocument* document_ = nullptr;
    Truth truth_;
};

/// The specimen opened last, kept open for those who measure with the same one after another.
class Bench {
public:
    OpenSpecimen& open(const Specimen& specimen);
    /// Closes what is open: it was changed, or its memory is wanted.
    void clear();

private:
    std::unique_ptr<OpenSpecimen> opened_;
    std::string name_;
};

} // namespace benchmark_measure
