#include "geometry/AcGeMatrix3d.h"

#include "geometry/AcGePlane.h"
#include "Near.h"
#include "platform/PlatformException.h"

#include <gtest/gtest.h>

namespace {

using geometry_test::near;
using geometry_test::pi;

TEST(Matrix, StartsAsIdentity) {
    const AcGeMatrix3d matrix;
    EXPECT_TRUE(matrix == AcGeMatrix3d::kIdentity);
    EXPECT_TRUE(near(matrix * AcGePoint3d(1.0, 2.0, 3.0), AcGePoint3d(1.0, 2.0, 3.0)));
    AcGeMatrix3d other;
    other.setToScaling(2.0);
    EXPECT_FALSE(other == matrix);
    EXPECT_TRUE(other.setToIdentity() == matrix);
}

TEST(Matrix, TranslationMovesPointsNotVectors) {
    const AcGeMatrix3d matrix = AcGeMatrix3d().setToTranslation({1.0, 2.0, 3.0});
    EXPECT_TRUE(near(matrix * AcGePoint3d(1.0, 1.0, 1.0), AcGePoint3d(2.0, 3.0, 4.0)));
    EXPECT_TRUE(near(matrix * AcGeVector3d(1.0, 1.0, 1.0), AcGeVector3d(1.0, 1.0, 1.0)));
    EXPECT_EQ(matrix(1, 3), 2.0);
}

TEST(Matrix, RotationAboutAPoint) {
    const AcGeMatrix3d matrix =
        AcGeMatrix3d().setToRotation(pi / 2.0, AcGeVector3d::kZAxis, {1.0, 0.0, 0.0});
    EXPECT_TRUE(near(matrix * AcGePoint3d(2.0, 0.0, 4.0), AcGePoint3d(1.0, 1.0, 4.0)));
    EXPECT_TRUE(AcGeMatrix3d().setToRotation(1.0, AcGeVector3d()) == AcGeMatrix3d::kIdentity);
}

TEST(Matrix, ScalingAboutAPoint) {
    EXPECT_TRUE(near(AcGeMatrix3d().setToScaling(3.0, {1.0, 1.0, 1.0}) * AcGePoint3d(2.0, 1.0, 0.0),
                     AcGePoint3d(4.0, 1.0, -2.0)));
    const AcGeMatrix3d uneven = AcGeMatrix3d().setToScaling(AcGeScale3d(2.0, -1.0, 0.5));
    EXPECT_TRUE(near(uneven * AcGePoint3d(1.0, 2.0, 4.0), AcGePoint3d(2.0, -2.0, 2.0)));
    EXPECT_EQ(uneven.det(), -1.0);
}

TEST(Matrix, MirroringInAPlane) {
    const AcGePlane wall({3.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    const AcGeMatrix3d matrix = AcGeMatrix3d().setToMirroring(wall);
    EXPECT_TRUE(near(matrix * AcGePoint3d(1.0, 2.0, 3.0), AcGePoint3d(5.0, 2.0, 3.0)));
    EXPECT_DOUBLE_EQ(matrix.det(), -1.0);
}

TEST(Matrix, ProductsApplyTheRightOneFirst) {
    const AcGeMatrix3d move = AcGeMatrix3d().setToTranslation({1.0, 0.0, 0.0});
    const AcGeMatrix3d grow = AcGeMatrix3d().setToScaling(2.0);
    EXPECT_TRUE(near(grow * move * AcGePoint3d(1.0, 0.0, 0.0), AcGePoint3d(4.0, 0.0, 0.0)));
    EXPECT_TRUE(near(move * grow * AcGePoint3d(1.0, 0.0, 0.0), AcGePoint3d(3.0, 0.0, 0.0)));
    AcGeMatrix3d matrix = grow;
    EXPECT_TRUE(matrix.preMultBy(move) == move * grow);
    matrix = grow;
    EXPECT_TRUE(matrix.postMultBy(move) == grow * move);
    matrix.setToProduct(matrix, matrix);
    EXPECT_TRUE(matrix == grow * move * grow * move);
}

TEST(Matrix, InverseUndoes) {
    const AcGeMatrix3d matrix = AcGeMatrix3d().setToTranslation({5.0, 6.0, 7.0}) *
                                AcGeMatrix3d().setToRotation(0.7, {1.0, 2.0, 3.0}) *
                                AcGeMatrix3d().setToScaling(AcGeScale3d(2.0, 3.0, -4.0));
    EXPECT_TRUE(matrix * matrix.inverse() == AcGeMatrix3d::kIdentity);
    AcGeMatrix3d other = matrix;
    EXPECT_TRUE(other.invert() * matrix == AcGeMatrix3d::kIdentity);
    AcGeMatrix3d flat = AcGeMatrix3d().setToScaling(AcGeScale3d(1.0, 1.0, 0.0));
    EXPECT_TRUE(flat.isSingular());
    EXPECT_THROW(flat.invert(), CInvalidArgException);
}

TEST(Matrix, CoordinateSystemsGoInAndOut) {
    AcGeMatrix3d matrix;
    matrix.setCoordSystem({1.0, 2.0, 3.0}, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis,
                          AcGeVector3d::kXAxis);
    EXPECT_TRUE(near(matrix * AcGePoint3d(10.0, 20.0, 30.0), AcGePoint3d(31.0, 12.0, 23.0)));
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    matrix.getCoordSystem(origin, x, y, z);
    EXPECT_TRUE(near(origin, AcGePoint3d(1.0, 2.0, 3.0)));
    EXPECT_TRUE(near(x, AcGeVector3d::kYAxis));
    EXPECT_TRUE(near(y, AcGeVector3d::kZAxis));
    EXPECT_TRUE(near(z, AcGeVector3d::kXAxis));
}

// For the normal (0, 0, -1): first axis (-1, 0, 0), second normal x first = (0, 1, 0).
TEST(Matrix, ObjectCoordinatesFollowTheDrawingConvention) {
    EXPECT_TRUE(AcGeMatrix3d::planeToWorld(AcGeVector3d::kZAxis) == AcGeMatrix3d::kIdentity);
    const AcGeMatrix3d under = AcGeMatrix3d::planeToWorld(-AcGeVector3d::kZAxis);
    EXPECT_TRUE(near(under * AcGePoint3d(1.0, 2.0, 3.0), AcGePoint3d(-1.0, 2.0, -3.0)));
    const AcGeMatrix3d back = AcGeMatrix3d::worldToPlane(-AcGeVector3d::kZAxis);
    EXPECT_TRUE(near(back * AcGePoint3d(-1.0, 2.0, -3.0), AcGePoint3d(1.0, 2.0, 3.0)));
    const AcGePlane lifted({1.0, 1.0, 4.0}, AcGeVector3d::kXAxis);
    EXPECT_TRUE(near(AcGeMatrix3d::planeToWorld(lifted) * AcGePoint3d(2.0, 3.0, 0.0),
                     AcGePoint3d(1.0, 3.0, 7.0)));
    EXPECT_TRUE(near(AcGeMatrix3d::worldToPlane(lifted) * AcGePoint3d(1.0, 3.0, 7.0),
                     AcGePoint3d(2.0, 3.0, 0.0)));
}

} // namespace
