#pragma once

#include "database/AcRxClass.h"

/// Root of the object family with run-time class identity.
class AcRxObject {
public:
    virtual ~AcRxObject();

    static AcRxClass* desc();
    /// The descriptor of the object's own class.
    virtual AcRxClass* isA() const;
    /// The object's class is `other` or derives from it.
    bool isKindOf(const AcRxClass* other) const { return isA()->isDerivedFrom(other); }
    static AcRxObject* cast(const AcRxObject* object);
    /// A deep copy that is in no database and belongs to the caller (delete); nullptr from a class
    /// that cannot be copied.
    virtual AcRxObject* clone() const;

protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = delete;
};

/// Declares the class identity of CLASS: `desc()`, `isA()` and `cast()`, which gives nullptr for an
/// object of another class.
#define ACRX_DECLARE_MEMBERS(CLASS)                                                                \
public:                                                                                            \
    static AcRxClass* desc();                                                                      \
    AcRxClass* isA() const override;                                                               \
    static CLASS* cast(const AcRxObject* object)

/// Defines them; DXF_NAME is the type name in drawing files or nullptr.
#define ACRX_DEFINE_MEMBERS(CLASS, PARENT, DXF_NAME)                                               \
    AcRxClass* CLASS::desc() {                                                                     \
        static AcRxClass descriptor(L## #CLASS, PARENT::desc(), DXF_NAME);                         \
        return &descriptor;                                                                        \
    }                                                                                              \
    AcRxClass* CLASS::isA() const {                                                                \
        return CLASS::desc();                                                                      \
    }                                                                                              \
    CLASS* CLASS::cast(const AcRxObject* object) {                                                 \
        const bool fits = object != nullptr && object->isKindOf(CLASS::desc());                    \
        return fits ? const_cast<CLASS*>(static_cast<const CLASS*>(object)) : nullptr;             \
    }
