#include "database/AcDbText.h"

#include "database/AcDbDatabase.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/Normals.h"
#include "database/TextMetrics.h"

#include <cmath>

ACRX_DEFINE_MEMBERS(AcDbText, AcDbEntity, L"TEXT")

namespace {

/// Part of the width or height by which the box lies before the point it is aligned at.
double horizontalShift(AcDb::TextHorzMode mode) {
    switch (mode) {
    case AcDb::kTextCenter:
    case AcDb::kTextMid:
        return 0.5;
    case AcDb::kTextRight:
        return 1.0;
    default:
        return 0.0;
    }
}

double verticalShift(AcDb::TextHorzMode horizontal, AcDb::TextVertMode mode) {
    if (horizontal == AcDb::kTextMid || mode == AcDb::kTextVertMid) {
        return 0.5;
    }
    return mode == AcDb::kTextTop ? 1.0 : 0.0;
}

} // namespace

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style,
                   double height, double rotation)
    : position_(position), height_(height), rotation_(rotation), text_(text), style_(style) {}

AcRxObject* AcDbText::clone() const {
    return new AcDbText(*this);
}

ACHAR* AcDbText::textString() const {
    ACHAR* copy = nullptr;
    acutNewString(text_, copy);
    return copy;
}

Acad::ErrorStatus AcDbText::textString(CString& text) const {
    text = text_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& point) {
    return changeDirection(position_, point, true);
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point) {
    return changeDirection(alignment_, point, true);
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal) {
    return change(normal_, host_db::unitNormal(normal));
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
    return change(height_, height);
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
    return change(widthFactor_, factor);
}

Acad::ErrorStatus AcDbText::setOblique(double angle) {
    return change(oblique_, angle);
}

Acad::ErrorStatus AcDbText::setRotation(double angle) {
    return changeDirection(rotation_, angle, false);
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    return change(text_, text);
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
    return change(style_, style);
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
    return changeDirection(horizontal_, mode, true);
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
    return change(vertical_, mode);
}

Acad::ErrorStatus AcDbText::mirrorInX(Adesk::Boolean mirrored) {
    return change(mirroredX_, mirrored != 0);
}

Acad::ErrorStatus AcDbText::mirrorInY(Adesk::Boolean mirrored) {
    return change(mirroredY_, mirrored != 0);
}

host_db::TextFonts AcDbText::fonts() const {
    if (!style_.isNull()) {
        return host_db::TextFonts(style_);
    }
    const AcDbDatabase* const own = database();
    const AcDbDatabase* const drawing =
        own != nullptr ? own : acdbHostApplicationServices()->workingDatabase();
    return drawing == nullptr ? host_db::TextFonts() : host_db::TextFonts(drawing->textstyle());
}

AcDbText::Box AcDbText::localBox() const {
    Box box;
    box.angle = rotation_;
    box.width = host_db::textWidth(text_, fonts()) * height_ * widthFactor_;
    box.height = height_;
    const bool isPlain = horizontal_ == AcDb::kTextLeft && vertical_ == AcDb::kTextBase;
    box.place = isPlain ? position_ : alignment_;
    if (horizontal_ == AcDb::kTextAlign || horizontal_ == AcDb::kTextFit) {
        const AcGeVector3d along = AcGeMatrix3d::worldToPlane(normal_) * (alignment_ - position_);
        const double width = std::hypot(along.x, along.y);
        box.place = position_;
        if (width > 0.0) {
            box.angle = followsPoints_ ? std::atan2(along.y, along.x) : rotation_;
            const bool keepsShape = horizontal_ == AcDb::kTextAlign && box.width > 0.0;
            box.height = keepsShape ? height_ * width / box.width : height_;
            box.width = width;
        }
    }
    return box;
}

bool AcDbText::addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const {
    const Box local = localBox();
    AcGeMatrix3d turn;
    turn.setToRotation(local.angle, {0.0, 0.0, 1.0});
    AcGeMatrix3d move;
    move.setToTranslation(local.place.asVector());
    const AcGeMatrix3d toWorld = transform * move * AcGeMatrix3d::planeToWorld(normal_) * turn;
    const double left = -local.width * horizontalShift(horizontal_);
    const double bottom = -local.height * verticalShift(horizontal_, vertical_);
    const double slope = std::tan(oblique_);
    for (const double x : {left, left + local.width}) {
        for (const double y : {bottom, bottom + local.height}) {
            const double slanted = x + y * slope;
            box.addPoint(toWorld *
                         AcGePoint3d(mirroredX_ ? -slanted : slanted, mirroredY_ ? -y : y, 0.0));
        }
    }
    return true;
}
