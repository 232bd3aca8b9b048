#pragma once

#include "platform/CString.h"

class AcDbObject;

namespace host_db {

/// Reads the text that an object carries under an application: the first group 1000 item of the
/// first section of `application`, a name compared without regard to case.
///
/// `hasApp` tells whether the section is there, which the result repeats. `text` becomes the item's
/// text, the empty text when the section has no item of group 1000, and stays as it was without a
/// section. Cost: without a section one look into a small set; else the object's extended data are
/// read up to the item, without building a chain.
bool firstXdataString(const AcDbObject& object, const wchar_t* application, CString& text,
                      bool& hasApp);

} // namespace host_db
