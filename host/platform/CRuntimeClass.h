#pragma once

class CObject;

/// The record that identifies a class at run time; every class of the family has one for the
/// whole process. Records are constant-initialised, so they may be used before main starts, and not
/// constant: registering writes their link.
struct CRuntimeClass {
    /// Class name, narrow text.
    const char* m_lpszClassName;
    /// Bytes of an object of the class.
    int m_nObjectSize;
    /// Schema number; 0xFFFF for classes that are not stored.
    unsigned m_wSchema;
    /// Makes a new object that the caller owns; null for classes without dynamic creation.
    CObject* (*m_pfnCreateObject)();
    /// Gives the record of the base class, null at the root.
    CRuntimeClass* (*m_pfnGetBaseClass)();
    /// Next record of the list that the class was registered in by AfxClassInit; else null.
    CRuntimeClass* m_pNextClass;

    /// Whether this class is `base` or derived from it. `base` null gives false. Cost: one step
    /// for each level of derivation.
    bool IsDerivedFrom(const CRuntimeClass* base) const;

    /// A new object owned by the caller, or null for a class without dynamic creation.
    CObject* CreateObject() const;
};
