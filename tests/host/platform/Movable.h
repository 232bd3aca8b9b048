#pragma once

namespace platform_test {

/// A value that, like some records of the module, copies from a non-const reference and leaves a
/// field out when copied. It counts its living objects.
class Movable {
public:
    Movable() { ++alive; }
    explicit Movable(int initValue) : value(initValue) { ++alive; }
    Movable(Movable& other) : value(other.value) { ++alive; }
    Movable& operator=(Movable& other) {
        value = other.value;
        return *this;
    }
    ~Movable() { --alive; }

    int value = -1;
    /// Never copied.
    int note = 0;

    static inline int alive = 0;
};

} // namespace platform_test
