#include "utilities/SystemVariableAtZero.h"

namespace tkvlt {

SystemVariableAtZero::SystemVariableAtZero(const ACHAR* name) : name_(name) {
    acedGetVar(name_, &saved_);
    resbuf zero = saved_;
    zero.resval.rint = 0;
    acedSetVar(name_, &zero);
}

SystemVariableAtZero::~SystemVariableAtZero() {
    acedSetVar(name_, &saved_);
}

} // namespace tkvlt
