#include "services/Seg.h"

Seg::Seg() = default;

Seg::Seg(Seg& other) : kind(other.kind), pressure(other.pressure), gravity(other.gravity) {}

Seg& Seg::operator=(Seg& other) { // NOLINT(bugprone-unhandled-self-assignment)
    kind = other.kind;
    pressure = other.pressure;
    gravity = other.gravity;
    return *this;
}

Seg::~Seg() = default;
