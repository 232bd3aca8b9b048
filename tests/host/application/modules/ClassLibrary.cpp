// A library that is no extension library and registers a class, whose record so stands in the
// host's own list.

#include "EmbeddedHost.h"

namespace {

CRuntimeClass classWyvern = {"Wyvern", sizeof(CObject),        1,
                             nullptr,  &CObject::GetThisClass, nullptr};
const AFX_CLASSINIT registerWyvern(&classWyvern);

} // namespace
