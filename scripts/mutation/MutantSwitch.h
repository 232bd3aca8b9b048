#pragma once

// Which mutant of the build runs, and a note of those that were come by. Part of every source of the
// mutation build by a flag of the compiler, and of nothing else.

namespace mutation {

extern __attribute__((visibility("default"))) int chosen;
extern __attribute__((visibility("default"))) unsigned char* reached;

/// True when mutant `number` is the one that runs. Notes that it was reached.
inline bool on(int number) {
    reached[number] = 1;
    return chosen == number;
}

} // namespace mutation
