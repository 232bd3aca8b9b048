#include "dxf/RecordSorter.h"

namespace host_dxf {

namespace {

constexpr int subclassMarker = 100;
constexpr int embeddedObjectMarker = 101;
constexpr int bracketCode = 102;
constexpr int firstXdataCode = 1000;
constexpr int applicationCode = 1001;

} // namespace

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
