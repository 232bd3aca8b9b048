#pragma once

#include "exchange/ModelFile.h"
#include "exchange/PipeModel.h"

#include <unordered_map>

namespace pipenet {

/// Puts a model together from the rows of its file. What both formats have alike is here.
class ModelBuilder {
public:
    ModelBuilder(const ModelFile& file, ModelFormat format);

    const ModelFile& file() const { return file_; }
    PipeModel& model() { return model_; }

    /// Adds a node named by the row's first word. Throws Failure for a name that is taken.
    ModelNode& addNode(const ModelRow& row, ModelNodeKind kind);
    /// Adds a link named by the row's first word between the nodes named by the next two. Throws
    /// Failure for a name that is taken, a node that is missing, and a link from a node to itself.
    ModelLink& addLink(const ModelRow& row);
    /// The link with this name; null when there is none.
    ModelLink* link(const std::string& name);
    /// A length that must be above 0, in metres of `unit`.
    double length(const ModelRow& row, std::size_t place, double unit) const;
    /// A width in whole millimetres of `unit`; 0 stands for none. Throws Failure for less, and for
    /// more than a kilometre.
    int millimetres(const ModelRow& row, std::size_t place, double unit) const;
    void note(const std::string& text) { model_.notes.push_back(text); }

    /// Reads where the nodes stand and how the links bend, and hands the model over. Throws Failure
    /// for a model without links and for a node without a place.
    PipeModel finish();

private:
    std::size_t node(const ModelRow& row, std::size_t place) const;
    void readCoordinates();
    void readVertices();
    void checkPlaces() const;

    const ModelFile& file_;
    PipeModel model_;
    std::unordered_map<std::string, std::size_t> nodes_;
    std::unordered_map<std::string, std::size_t> links_;
};

/// Builds the model of a file in the one format or the other.
PipeModel readSwmmModel(const ModelFile& file);
PipeModel readEpanetModel(const ModelFile& file);

inline constexpr double kFoot = 0.3048; ///< metres

} // namespace pipenet
