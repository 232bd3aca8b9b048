#include "platform/PlatformException.h"

const char* CException::what() const noexcept {
    return "platform error";
}

const char* CMemoryException::what() const noexcept {
    return "out of memory";
}

const char* CInvalidArgException::what() const noexcept {
    return "invalid argument";
}

const char* CNotSupportedException::what() const noexcept {
    return "operation not supported";
}

void AfxThrowMemoryException() {
    throw CMemoryException();
}

void AfxThrowInvalidArgException() {
    throw CInvalidArgException();
}

void AfxThrowNotSupportedException() {
    throw CNotSupportedException();
}
