#include "Demand.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void demand(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

} // namespace fuzz
