#pragma once

#include "platform/PlatformTypes.h"

/// Descriptor of one class of the object family: its name, its parent and the type name under which
/// drawing files know it. Descriptors live as long as the process.
class AcRxClass {
public:
    AcRxClass(const ACHAR* name, AcRxClass* parent, const ACHAR* dxfName)
        : name_(name), dxfName_(dxfName), parent_(parent) {}
    AcRxClass(const AcRxClass&) = delete;
    AcRxClass& operator=(const AcRxClass&) = delete;

    const ACHAR* name() const { return name_; }
    /// The type name in drawing files, nullptr for a class that no file holds.
    const ACHAR* dxfName() const { return dxfName_; }
    /// The parent's descriptor, nullptr at the root.
    AcRxClass* myParent() const { return parent_; }
    /// True for the class itself and for each class above it; false for nullptr.
    bool isDerivedFrom(const AcRxClass* other) const;

private:
    const ACHAR* name_;
    const ACHAR* dxfName_;
    AcRxClass* parent_;
};
