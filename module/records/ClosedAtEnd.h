#pragma once

#include "platform.h"

namespace tkvlt {

/// Closes an open object at the end of its scope, also when an exception ends it.
class ClosedAtEnd {
public:
    explicit ClosedAtEnd(AcDbObject* object) : object_(object) {}
    ClosedAtEnd(const ClosedAtEnd&) = delete;
    ClosedAtEnd& operator=(const ClosedAtEnd&) = delete;
    ~ClosedAtEnd() { object_->close(); }

private:
    AcDbObject* object_;
};

} // namespace tkvlt
