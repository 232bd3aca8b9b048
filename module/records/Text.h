#pragma once

#include "records/Entity.h"

/// Snapshot of a single-line text, kept for sibling modules.
class TKVLT_API _Text : public _Entity {
public:
    _Text();
    _Text(_Text& other); ///< copies every field
    /// Reads the text entity `id`; a failed open leaves the defaults with `valid` 0. The width is
    /// measured on a copy, so the entity in the drawing keeps its rotation.
    _Text(AcDbObjectId id);
    _Text& operator=(const _Text& other); ///< copies every field
    ~_Text() override;

    double height = 0.0;      ///< drawing units
    double widthFactor = 0.0; ///< 1.0 is the font's own width
    AcGePoint3d position;     ///< insertion point of a left-baseline text, else the alignment point
    CString handle;           ///< the entity's handle in hexadecimal text
    CString text;             ///< what is written
    double rotation = 0.0;    ///< radians
    double width = 0.0;       ///< width of the text measured unrotated, drawing units
    int horizontalMode = 0;   ///< `AcDb::TextHorzMode`
    int verticalMode = 0;     ///< `AcDb::TextVertMode`
};
