#pragma once

#include <exception>

/// Base of the class library's exceptions. Thrown by value; what() is a fixed English sentence.
class CException : public std::exception {
public:
    const char* what() const noexcept override;
};

/// Storage could not be had.
class CMemoryException : public CException {
public:
    const char* what() const noexcept override;
};

/// An argument outside what the operation allows, such as a bad index into an array.
class CInvalidArgException : public CException {
public:
    const char* what() const noexcept override;
};

/// The operation does not exist for this object.
class CNotSupportedException : public CException {
public:
    const char* what() const noexcept override;
};

/// Throw the exception of that name. They never return.
[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowNotSupportedException();
