#include "dxf/TextFactory.h"

#include "database/AcDbAttribute.h"
#include "database/AcDbAttributeDefinition.h"
#include "dxf/EntityGeometry.h"
#include "dxf/LoadContext.h"

namespace host_dxf {

namespace {

AcDb::TextHorzMode horizontalMode(const DxfRecord& record) {
    const std::int64_t mode = record.integer(72, 0);
    return mode < AcDb::kTextLeft || mode > AcDb::kTextFit ? AcDb::kTextLeft
                                                           : static_cast<AcDb::TextHorzMode>(mode);
}

/// `code` differs: attributes use the group of plain texts for something else.
AcDb::TextVertMode verticalMode(const DxfRecord& record, int code) {
    const std::int64_t mode = record.integer(code, 0);
    return mode < AcDb::kTextBase || mode > AcDb::kTextTop ? AcDb::kTextBase
                                                           : static_cast<AcDb::TextVertMode>(mode);
}

void fillText(LoadContext& context, const DxfRecord& record, int verticalCode, AcDbText& text) {
    constexpr std::int64_t backwardFlag = 2;
    constexpr std::int64_t upsideDownFlag = 4;
    constexpr std::string_view standardStyle = "STANDARD";
    const AcGeVector3d normal = extrusionOf(record);
    const std::string_view style = record.text(7);
    const std::int64_t mirroring = record.integer(71, 0);
    text.setNormal(normal);
    text.setPosition(worldPoint(pointOf(record, 10), normal));
    text.setAlignmentPoint(worldPoint(pointOf(record, 11), normal));
    text.setHeight(record.real(40, 0.0));
    text.setWidthFactor(record.real(41, 1.0));
    text.setRotation(angleOf(record, 50));
    text.setOblique(angleOf(record, 51));
    text.setTextString(context.decodeText(record.text(1)));
    text.setTextStyle(context.textStyle(style.empty() ? standardStyle : style));
    text.setHorizontalMode(horizontalMode(record));
    text.setVerticalMode(verticalMode(record, verticalCode));
    text.mirrorInX((mirroring & backwardFlag) != 0);
    text.mirrorInY((mirroring & upsideDownFlag) != 0);
}

constexpr int textVerticalCode = 73;
constexpr int attributeVerticalCode = 74;

template<typename Attribute>
std::unique_ptr<Attribute> makeTagged(LoadContext& context, const DxfRecord& record) {
    auto attribute = std::make_unique<Attribute>();
    fillText(context, record, attributeVerticalCode, *attribute);
    attribute->setTag(context.decodeText(record.text(2)));
    attribute->setFlags(static_cast<int>(record.integer(70, 0)));
    return attribute;
}

} // namespace

std::unique_ptr<AcDbEntity> makeText(LoadContext& context, const DxfRecord& record) {
    if (record.is("TEXT")) {
        auto text = std::make_unique<AcDbText>();
        fillText(context, record, textVerticalCode, *text);
        return text;
    }
    if (record.is("ATTDEF")) {
        auto definition = makeTagged<AcDbAttributeDefinition>(context, record);
        definition->setPrompt(context.decodeText(record.text(3)));
        return definition;
    }
    return nullptr;
}

std::unique_ptr<AcDbAttribute> makeAttribute(LoadContext& context, const DxfRecord& record) {
    return makeTagged<AcDbAttribute>(context, record);
}

} // namespace host_dxf
