#pragma once

#include "platform/CRuntimeClass.h"

/// Stream of the class library's storage. Objects here are never stored through it; the class
/// exists because `CObject` names it in its virtual operations.
class CArchive {};

/// Sink for diagnostic text. The virtual operations that name it write nothing.
class CDumpContext {};

/// Root of the classes with dynamic identity. Objects of the family cannot be copied.
///
/// The virtual operations stand in the platform's order: `GetRuntimeClass`, the destructor,
/// `Serialize`, `AssertValid`, `Dump`.
class CObject {
public:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    /// Record of the object's own class.
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Does nothing.
    virtual void Serialize(CArchive& archive);
    /// Does nothing.
    virtual void AssertValid() const;
    /// Does nothing.
    virtual void Dump(CDumpContext& context) const;

    /// Whether the object's class is `runtimeClass` or derived from it; false for null.
    bool IsKindOf(const CRuntimeClass* runtimeClass) const;

    static CRuntimeClass classCObject;
    /// Address of `classCObject`.
    static CRuntimeClass* GetThisClass();
    /// Always null: the root has no base.
    static CRuntimeClass* _GetBaseClass();
};

/// Address of the record of a class of the family.
#define RUNTIME_CLASS(className) (className::GetThisClass())

/// Inside a class: declares its record and the operations that give it out.
#define DECLARE_DYNAMIC(className)                                                                 \
public:                                                                                            \
    static CRuntimeClass class##className;                                                         \
    static CRuntimeClass* GetThisClass();                                                          \
    static CRuntimeClass* _GetBaseClass();                                                         \
    CRuntimeClass* GetRuntimeClass() const override;

/// In one source file: defines what `DECLARE_DYNAMIC` declared.
#define IMPLEMENT_DYNAMIC(className, baseClassName)                                                \
    CRuntimeClass* className::_GetBaseClass() {                                                    \
        return baseClassName::GetThisClass();                                                      \
    }                                                                                              \
    CRuntimeClass className::class##className = {                                                  \
        #className, static_cast<int>(sizeof(className)), 0xFFFF,                                   \
        nullptr,    &className::_GetBaseClass,           nullptr};                                 \
    CRuntimeClass* className::GetThisClass() {                                                     \
        return &className::class##className;                                                       \
    }                                                                                              \
    CRuntimeClass* className::GetRuntimeClass() const {                                            \
        return GetThisClass();                                                                     \
    }
