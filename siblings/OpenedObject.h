#pragma once

#include "database/OpenObject.h"

namespace siblings {

/// An object opened for as long as this lives.
template<typename T>
class OpenedObject {
public:
    OpenedObject(AcDbObjectId id, AcDb::OpenMode mode)
        : status_(acdbOpenObject(object_, id, mode)) {}
    OpenedObject(const OpenedObject&) = delete;
    OpenedObject& operator=(const OpenedObject&) = delete;
    ~OpenedObject() {
        if (status_ == Acad::eOk) {
            object_->close();
        }
    }

    explicit operator bool() const { return status_ == Acad::eOk; }
    Acad::ErrorStatus status() const { return status_; }
    /// Only of an object that could be opened.
    T* operator->() const { return object_; }
    T* get() const { return object_; }

private:
    T* object_ = nullptr;
    Acad::ErrorStatus status_;
};

} // namespace siblings
