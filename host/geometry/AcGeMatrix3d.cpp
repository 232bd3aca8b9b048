#include "geometry/AcGeMatrix3d.h"

#include "geometry/AcGePlane.h"
#include "platform/PlatformException.h"

#include <cmath>

constinit const AcGeMatrix3d AcGeMatrix3d::kIdentity;

AcGeMatrix3d& AcGeMatrix3d::setToIdentity() {
    return *this = kIdentity;
}

AcGeMatrix3d& AcGeMatrix3d::setToProduct(const AcGeMatrix3d& left, const AcGeMatrix3d& right) {
    AcGeMatrix3d product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int i = 0; i < 4; ++i) {
                sum += left.entry[row][i] * right.entry[i][column];
            }
            product.entry[row][column] = sum;
        }
    }
    return *this = product;
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const {
    AcGeMatrix3d product;
    return product.setToProduct(*this, right);
}

double AcGeMatrix3d::det() const {
    return column(0).dotProduct(column(1).crossProduct(column(2)));
}

AcGeMatrix3d AcGeMatrix3d::inverse() const {
    const double determinant = det();
    if (determinant == 0.0) {
        AfxThrowInvalidArgException();
    }
    const AcGeVector3d rows[3] = {column(1).crossProduct(column(2)) / determinant,
                                  column(2).crossProduct(column(0)) / determinant,
                                  column(0).crossProduct(column(1)) / determinant};
    AcGeMatrix3d result;
    for (int row = 0; row < 3; ++row) {
        result.entry[row][0] = rows[row].x;
        result.entry[row][1] = rows[row].y;
        result.entry[row][2] = rows[row].z;
        result.entry[row][3] = -rows[row].dotProduct(translation());
    }
    return result;
}

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& offset) {
    const AcGePoint3d origin = AcGePoint3d::kOrigin + offset;
    setToIdentity();
    entry[0][3] = origin.x;
    entry[1][3] = origin.y;
    entry[2][3] = origin.z;
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::fixPoint(const AcGePoint3d& center) {
    const AcGeVector3d offset = center - (*this * center);
    entry[0][3] += offset.x;
    entry[1][3] += offset.y;
    entry[2][3] += offset.z;
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis,
                                          const AcGePoint3d& center) {
    AcGeVector3d axes[3] = {AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis};
    for (AcGeVector3d& turned : axes) {
        turned.rotateBy(angle, axis);
    }
    return setCoordSystem(AcGePoint3d::kOrigin, axes[0], axes[1], axes[2]).fixPoint(center);
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double factor, const AcGePoint3d& center) {
    return setToScaling(AcGeScale3d(factor), center);
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(const AcGeScale3d& scale, const AcGePoint3d& center) {
    return setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d(scale.sx, 0.0, 0.0),
                          AcGeVector3d(0.0, scale.sy, 0.0), AcGeVector3d(0.0, 0.0, scale.sz))
        .fixPoint(center);
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePlane& plane) {
    AcGeVector3d axes[3] = {AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis};
    for (AcGeVector3d& mirrored : axes) {
        mirrored.mirror(plane.normal());
    }
    return setCoordSystem(AcGePoint3d::kOrigin, axes[0], axes[1], axes[2])
        .fixPoint(plane.pointOnPlane());
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
    setToIdentity();
    const AcGeVector3d columns[4] = {xAxis, yAxis, zAxis, origin.asVector()};
    for (int i = 0; i < 4; ++i) {
        entry[0][i] = columns[i].x;
        entry[1][i] = columns[i].y;
        entry[2][i] = columns[i].z;
    }
    return *this;
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const {
    origin = AcGePoint3d::kOrigin + translation();
    xAxis = column(0);
    yAxis = column(1);
    zAxis = column(2);
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGeVector3d& normal) {
    return setToPlaneToWorld(AcGePlane(AcGePoint3d::kOrigin, normal));
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGePlane& plane) {
    AcGePoint3d origin;
    AcGeVector3d uAxis;
    AcGeVector3d vAxis;
    plane.get(origin, uAxis, vAxis);
    return setCoordSystem(origin, uAxis, vAxis, plane.normal());
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGeVector3d& normal) {
    return setToPlaneToWorld(normal).invert();
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGePlane& plane) {
    return setToPlaneToWorld(plane).invert();
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal) {
    return AcGeMatrix3d().setToPlaneToWorld(normal);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGePlane& plane) {
    return AcGeMatrix3d().setToPlaneToWorld(plane);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal) {
    return AcGeMatrix3d().setToWorldToPlane(normal);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGePlane& plane) {
    return AcGeMatrix3d().setToWorldToPlane(plane);
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol) const {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            if (std::fabs(entry[row][column] - other.entry[row][column]) > tol.equalPoint()) {
                return false;
            }
        }
    }
    return true;
}
