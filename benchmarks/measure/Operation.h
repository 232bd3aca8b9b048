#pragma once

#include "measure/Specimen.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace benchmark_measure {

/// Something that is timed on a drawing. Each time stands between `prepare` and `check`, which are
/// not timed.
class Operation {
public:
    Operation() = default;
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    virtual ~Operation() = default;

    virtual void prepare() {}
    virtual void run() = 0;
    /// Throws std::runtime_error when the answer was wrong: the time of a wrong answer is none.
    /// @param first the first time on this drawing, when the whole answer is looked at; later its
    ///              result and counts are.
    virtual void check(bool first) = 0;
};

/// A kind of operation by its name, the drawings that it is for, and how one is made.
struct OperationKind {
    std::string name;
    std::function<bool(const Specimen&)> appliesTo;
    std::function<std::unique_ptr<Operation>(Bench&, const Specimen&)> make;
};

std::vector<OperationKind> searchOperations();
std::vector<OperationKind> partOperations();
std::vector<OperationKind> fileOperations();

/// Throws std::runtime_error with `what` unless `holds`.
void require(bool holds, const std::string& what);

} // namespace benchmark_measure
