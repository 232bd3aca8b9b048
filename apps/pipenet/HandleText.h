#pragma once

#include "EmbeddedHost.h"

#include <string>

namespace pipenet {

/// Upper-case hexadecimal text of a handle, empty for the null handle.
std::string handleText(const AcDbHandle& handle);
/// The same of an object's handle, empty for the null id.
std::string handleText(const AcDbObjectId& id);

/// The handles of a list, with blanks between them.
std::string handlesText(const AcDbObjectIdArray& ids);

/// A text of the platform as UTF-8.
std::string utf8(const CString& text);

} // namespace pipenet
