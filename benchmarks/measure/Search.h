#pragma once

#include "measure/Specimen.h"

#include "TKVltSearchModule18.h"

#include <memory>

namespace benchmark_measure {

/// One whole search of a system, from the entity that its truth names.
class Search {
public:
    /// @param plain asks for the plain scan instead of the index.
    Search(const OpenSpecimen& specimen, const SystemTruth& system, bool plain);
    ~Search();
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    /// Forgets the last network.
    void clear();
    void run();
    /// Compares with the truth; throws std::runtime_error when they differ. With `wholly` each well
    /// of a gravity network must hang on its own parent, else the counts are compared.
    void check(bool wholly) const;

private:
    void checkGravity(bool wholly) const;
    void checkPressure() const;

    const OpenSpecimen& specimen_;
    const SystemTruth& system_;
    bool plain_;
    AcDbObjectId start_;
    int result_ = 0;
    SearchObject* object_ = nullptr;
};

} // namespace benchmark_measure
