#pragma once

#include "dxf/DxfRecord.h"

#include <memory>

class AcDbAttribute;
class AcDbEntity;

namespace host_dxf {

class LoadContext;

/// The text that a TEXT or ATTDEF record describes; nullptr for every other record.
std::unique_ptr<AcDbEntity> makeText(LoadContext& context, const DxfRecord& record);

/// The attribute that an ATTRIB record describes.
std::unique_ptr<AcDbAttribute> makeAttribute(LoadContext& context, const DxfRecord& record);

} // namespace host_dxf
