#pragma once

#include "database/AcDbEntity.h"
#include "database/TextFonts.h"

/// A line of text. Points are world coordinates; angles are radians about the normal.
class AcDbText : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbText);

public:
    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text,
             AcDbObjectId style = AcDbObjectId::kNull, double height = 0.0, double rotation = 0.0);
    AcRxObject* clone() const override;

    AcGePoint3d position() const { return position_; }
    /// The point the text is aligned at; of no account while both modes are 0.
    AcGePoint3d alignmentPoint() const { return alignment_; }
    AcGeVector3d normal() const { return normal_; }
    double height() const { return height_; }
    double widthFactor() const { return widthFactor_; }
    double oblique() const { return oblique_; }
    double rotation() const { return rotation_; }
    /// A new text that the caller releases with acutDelString.
    ACHAR* textString() const;
    Acad::ErrorStatus textString(CString& text) const;
    const ACHAR* textStringConst() const { return text_; }
    AcDbObjectId textStyle() const { return style_; }
    AcDb::TextHorzMode horizontalMode() const { return horizontal_; }
    AcDb::TextVertMode verticalMode() const { return vertical_; }
    Adesk::Boolean isMirroredInX() const { return mirroredX_ ? Adesk::kTrue : Adesk::kFalse; }
    Adesk::Boolean isMirroredInY() const { return mirroredY_ ? Adesk::kTrue : Adesk::kFalse; }

    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setHeight(double height);
    Acad::ErrorStatus setWidthFactor(double factor);
    Acad::ErrorStatus setOblique(double angle);
    Acad::ErrorStatus setRotation(double angle);
    Acad::ErrorStatus setTextString(const ACHAR* text);
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    Acad::ErrorStatus mirrorInX(Adesk::Boolean mirrored);
    Acad::ErrorStatus mirrorInY(Adesk::Boolean mirrored);

    /// The text's box, from the pen's start to its end and from the baseline to the height, turned,
    /// slanted and aligned: as wide as host_db::textWidth says of the style's fonts, not as the ink
    /// of the letters. A text without a style has that of its drawing, or of the working one.
    /// An empty text is a point-wide box at its place. A text between two points runs from one to
    /// the other, but where it was turned after they were set; it stays as long then.
    bool addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const override;

protected:
    AcDbText(const AcDbText&) = default;

private:
    /// The text's box before it is turned and slanted about the place it hangs at.
    struct Box {
        AcGePoint3d place;
        double angle = 0.0;
        double width = 0.0;
        double height = 0.0;
    };
    Box localBox() const;

    /// Sets a field on which the direction of a text between two points depends.
    template<typename Field, typename Value>
    Acad::ErrorStatus changeDirection(Field& field, const Value& value, bool followsPoints) {
        const Acad::ErrorStatus status = change(field, value);
        if (status == Acad::eOk) {
            followsPoints_ = followsPoints;
        }
        return status;
    }

    host_db::TextFonts fonts() const;

    AcGePoint3d position_;
    AcGePoint3d alignment_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
    double height_ = 0.0;
    double widthFactor_ = 1.0;
    double oblique_ = 0.0;
    double rotation_ = 0.0;
    CString text_;
    AcDbObjectId style_;
    AcDb::TextHorzMode horizontal_ = AcDb::kTextLeft;
    AcDb::TextVertMode vertical_ = AcDb::kTextBase;
    bool followsPoints_ = true;
    bool mirroredX_ = false;
    bool mirroredY_ = false;
};
