#include "dxf/RecordSorter.h"

#include "dxf/GroupCode.h"

namespace host_dxf {

RecordPart RecordSorter::next(const DxfTag& tag) {
    if (tag.code == applicationCode) {
        part_ = RecordPart::Xdata;
        return part_;
    }
    if (part_ == RecordPart::XrecordData ||
        (part_ == RecordPart::Xdata && tag.code >= firstXdataCode)) {
        return part_;
    }
    if (tag.code == bracketCode && part_ != RecordPart::Embedded) {
        part_ = tag.text.starts_with('{') ? RecordPart::Bracket : RecordPart::Fields;
        inExtensionDictionary_ = tag.text == "{ACAD_XDICTIONARY";
        return RecordPart::Bracket;
    }
    if (tag.code == embeddedObjectMarker) {
        part_ = RecordPart::Embedded;
    } else if (tag.code == subclassMarker) {
        // An unclosed bracket ends here at the latest: markers never stand inside one.
        const bool xrecord = type_ == "XRECORD" && tag.text == "AcDbXrecord";
        part_ = xrecord ? RecordPart::XrecordData : RecordPart::Fields;
        return RecordPart::Fields;
    }
    return part_ == RecordPart::Xdata ? RecordPart::Fields : part_;
}

} // namespace host_dxf
