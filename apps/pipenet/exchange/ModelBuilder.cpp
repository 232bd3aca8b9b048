#include "exchange/ModelBuilder.h"

#include "Messages.h"

#include <cmath>

namespace pipenet {

ModelBuilder::ModelBuilder(const ModelFile& file, ModelFormat format) : file_(file) {
    model_.format = format;
}

ModelNode& ModelBuilder::addNode(const ModelRow& row, ModelNodeKind kind) {
    const std::string& name = file_.name(row, 0);
    const auto [place, isNew] = nodes_.emplace(name, model_.nodes.size());
    if (!isNew) {
        file_.fail(row.line, textOf({0, "the node {} is there already, on line {}"}, name,
                                    model_.nodes[place->second].line));
    }
    ModelNode node;
    node.name = name;
    node.kind = kind;
    node.line = row.line;
    return model_.nodes.emplace_back(std::move(node));
}

std::size_t ModelBuilder::node(const ModelRow& row, std::size_t place) const {
    const auto found = nodes_.find(file_.name(row, place));
    if (found == nodes_.end()) {
        file_.fail(row.line, textOf({0, "there is no node {}"}, row.words[place]));
    }
    return found->second;
}

ModelLink& ModelBuilder::addLink(const ModelRow& row) {
    ModelLink link;
    link.name = file_.name(row, 0);
    link.line = row.line;
    link.from = node(row, 1);
    link.to = node(row, 2);
    if (link.from == link.to) {
        file_.fail(row.line, textOf({0, "the link {} begins and ends at {}"}, link.name,
                                    model_.nodes[link.from].name));
    }
    const auto [place, isNew] = links_.emplace(link.name, model_.links.size());
    if (!isNew) {
        file_.fail(row.line, textOf({0, "the link {} is there already, on line {}"}, link.name,
                                    model_.links[place->second].line));
    }
    return model_.links.emplace_back(std::move(link));
}

ModelLink* ModelBuilder::link(const std::string& name) {
    const auto found = links_.find(name);
    return found == links_.end() ? nullptr : &model_.links[found->second];
}

double ModelBuilder::length(const ModelRow& row, std::size_t place, double unit) const {
    const double value = file_.number(row, place) * unit;
    if (value <= 0.0) {
        file_.fail(row.line, textOf({0, "'{}' is no length above 0"}, row.words[place]));
    }
    return value;
}

int ModelBuilder::millimetres(const ModelRow& row, std::size_t place, double unit) const {
    constexpr double widest = 1e6;
    const double value = file_.number(row, place) * unit;
    if (value < 0.0 || value > widest) {
        file_.fail(row.line, textOf({0, "'{}' is no width of a pipe"}, row.words[place]));
    }
    return static_cast<int>(std::lround(value));
}

void ModelBuilder::readCoordinates() {
    for (const ModelRow& row : file_.rows("COOR")) {
        file_.need(row, 3);
        const auto found = nodes_.find(file_.name(row, 0));
        if (found == nodes_.end()) {
            continue; // the engines pass over places of what is not in the model
        }
        ModelNode& node = model_.nodes[found->second];
        node.at = {file_.number(row, 1), file_.number(row, 2)};
        node.placed = true;
    }
}

void ModelBuilder::readVertices() {
    for (const ModelRow& row : file_.rows("VERT")) {
        file_.need(row, 3);
        if (ModelLink* bent = link(file_.name(row, 0))) {
            bent->vertices.push_back({file_.number(row, 1), file_.number(row, 2)});
        }
    }
}

void ModelBuilder::checkPlaces() const {
    for (const ModelNode& node : model_.nodes) {
        if (!node.placed) {
            file_.fail(node.line,
                       textOf({0, "the node {} has no place under [COORDINATES]"}, node.name));
        }
    }
}

PipeModel ModelBuilder::finish() {
    if (model_.links.empty()) {
        file_.fail("the model has no pipes");
    }
    readCoordinates();
    readVertices();
    checkPlaces();
    return std::move(model_);
}

} // namespace pipenet
