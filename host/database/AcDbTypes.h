#pragma once

/// Enumerations shared by the database's classes.
namespace AcDb {

/// How an object is opened: any number of readers, or one writer.
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

/// Group codes named where the code needs them by name.
enum DxfCode {
    kDxfXDataStart = -3,
    kDxfOperator = -4,
    kDxfStart = 0,
    kDxfText = 1,
    kDxfBlockName = 2,
    kDxfSymTableName = 2,
    kDxfHandle = 5,
    kDxfLinetypeName = 6,
    kDxfTextStyleName = 7,
    kDxfLayerName = 8,
    kDxfXCoord = 10,
    kDxfReal = 40,
    kDxfInt16 = 70,
    kDxfColor = 62,
    kDxfInt32 = 90,
    kDxfXDAsciiString = 1000,
    kDxfRegAppName = 1001,
    kDxfXDControlString = 1002,
    kDxfXDLayer = 1003,
    kDxfXDBinaryChunk = 1004,
    kDxfXDHandle = 1005,
    kDxfXDXCoord = 1010,
    kDxfXDReal = 1040,
    kDxfXDInteger16 = 1070,
    kDxfXDInteger32 = 1071
};

/// Which of two entities counts as prolonged beyond its ends when they are intersected.
enum Intersect { kOnBothOperands = 0, kExtendThis = 1, kExtendArg = 2, kExtendBoth = 3 };

enum Visibility { kVisible = 0, kInvisible = 1 };

enum TextHorzMode {
    kTextLeft = 0,
    kTextCenter = 1,
    kTextRight = 2,
    kTextAlign = 3,
    kTextMid = 4,
    kTextFit = 5
};

enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };

enum Poly2dType {
    k2dSimplePoly = 0,
    k2dFitCurvePoly = 1,
    k2dQuadSplinePoly = 2,
    k2dCubicSplinePoly = 3
};

enum Poly3dType { k3dSimplePoly = 0, k3dQuadSplinePoly = 1, k3dCubicSplinePoly = 2 };

} // namespace AcDb
