#include "measure/Specimen.h"

#include <algorithm>
#include <stdexcept>

namespace benchmark_measure {

namespace {

/// The roots and counts of the published models; see the truth files beside the drawings.
std::vector<Specimen> examplesIn(const std::filesystem::path& folder) {
    const auto gravity = [](std::uint64_t start, std::uint64_t farPipe, std::size_t nodes) {
        Truth truth;
        truth.systems.push_back({false, false, start, 0.0, 0.0, farPipe, nodes, nodes - 1, 0, 0});
        return truth;
    };
    const auto pressure = [](bool refused, std::size_t runs) {
        Truth truth;
        truth.systems.push_back({true, refused, 0x2001, 2760.32, 1079.74, 0x2001, 0, runs, 0, 0});
        return truth;
    };
    return {{"brambleton", folder / "brambleton.dxf", {}, gravity(0x1176, 0x2001, 375)},
            {"epa-user1", folder / "epa-user1.dxf", {}, gravity(0x103C, 0x2001, 60)},
            {"l-town-tree", folder / "l-town-tree.dxf", {}, pressure(false, 762)},
            {"l-town-whole", folder / "l-town-whole.dxf", {}, pressure(true, 0)}};
}

} // namespace

std::vector<Specimen> findSpecimens(const std::filesystem::path& towns,
                                    const std::filesystem::path& examples) {
    std::vector<Specimen> found;
    for (const auto& entry : std::filesystem::directory_iterator(towns)) {
        const std::filesystem::path& path = entry.path();
        if (path.extension() == ".dxf") {
            Specimen specimen{path.stem().string(), path, path, {}};
            specimen.truth.replace_extension(".csv");
            found.push_back(specimen);
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Specimen& a, const Specimen& b) { return a.name < b.name; });
    for (Specimen& example : examplesIn(examples)) {
        found.push_back(std::move(example));
    }
    return found;
}

OpenSpecimen::OpenSpecimen(const Specimen& specimen)
    : truth_(specimen.isExample() ? specimen.known : readTruth(specimen.truth)) {
    std::string error;
    document_ = host::openDocument(specimen.drawing.string(), error);
    if (document_ == nullptr) {
        throw std::runtime_error(error);
    }
}

OpenSpecimen::~OpenSpecimen() {
    host::closeDocument(document_);
}

AcDbObjectId OpenSpecimen::entity(std::uint64_t handle) const {
    AcDbObjectId id;
    if (document_->database()->getAcDbObjectId(id, false, AcDbHandle(handle)) != Acad::eOk) {
        throw std::runtime_error("no entity under a handle of the truth");
    }
    return id;
}

OpenSpecimen& Bench::open(const Specimen& specimen) {
    if (!opened_ || name_ != specimen.name) {
        clear();
        opened_ = std::make_unique<OpenSpecimen>(specimen);
        name_ = specimen.name;
    }
    return *opened_;
}

void Bench::clear() {
    opened_.reset();
    name_.clear();
}

} // namespace benchmark_measure
