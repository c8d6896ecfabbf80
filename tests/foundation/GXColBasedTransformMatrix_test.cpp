#include <KTRCL_Geometry/elements/GX3DElements.h>
#include <KTRCL_Geometry/foundation/GXMatrix.h>

#include "support/Build.h"
#include "support/Near.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <vector>

namespace {

using Frame = GXColBasedTransformMatrix;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

static_assert(!std::is_convertible_v<GXVector*, Frame>);
static_assert(!std::is_convertible_v<double (*)[3], Frame>);

Frame FromRows(std::vector<double> numbers) {
  double rows[3][3];
  for (std::size_t i = 0; i < 9; ++i) {
    rows[i / 3][i % 3] = numbers.at(i);
  }
  return Frame(rows);
}

std::vector<double> Product(const Frame& a, const Frame& b) {
  std::vector<double> product;
  for (const GXVector& row : a.Base) {
    for (const GXVector& column : {GXVector(b.Base[0].X, b.Base[1].X, b.Base[2].X),
                                   GXVector(b.Base[0].Y, b.Base[1].Y, b.Base[2].Y),
                                   GXVector(b.Base[0].Z, b.Base[1].Z, b.Base[2].Z)}) {
      product.push_back(row.X * column.X + row.Y * column.Y + row.Z * column.Z);
    }
  }
  return product;
}

const std::vector<double> kIdentity = {1, 0, 0, 0, 1, 0, 0, 0, 1};

TEST(GXColBasedTransformMatrix, IsZeroByDefault) {
  EXPECT_POINT_EQ(Frame(), (std::vector<double>(9, 0.0)));
}

TEST(GXColBasedTransformMatrix, CopiesThreeVectorsFromAnArrayAsTheyAre) {
  GXVector vectors[4] = {GXVector(1, 2, 3), GXVector(4, 5, 6), GXVector(7, 8, 9), GXVector()};
  const Frame frame(vectors);
  vectors[0].X = 99;
  EXPECT_POINT_EQ(frame, (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(GXColBasedTransformMatrix, TakesThreeRowsOfNumbersAndHandsThemOut) {
  double rows[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  const Frame frame(rows);
  EXPECT_POINT_EQ(frame.Base[1], GXVector(4, 5, 6));
  double written[3][3] = {};
  frame.AsDbl(written);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      EXPECT_EQ(written[i][j], rows[i][j]);
    }
  }
}

TEST(GXColBasedTransformMatrix, CopyAndAssignmentCopyTheVectors) {
  Frame original = FromRows({1, 2, 3, 4, 5, 6, 7, 8, 9});
  const Frame copy(original);
  Frame assigned;
  EXPECT_EQ(&(assigned = original), &assigned);
  original.Base[0].X = 99;
  EXPECT_POINT_EQ(copy, (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_POINT_EQ(assigned, copy);
}

TEST(GXColBasedTransformMatrix, TransposeWorksInPlace) {
  Frame frame = FromRows({1, 2, 3, 4, 5, 6, 7, 8, 9});
  frame.Transpose();
  EXPECT_POINT_EQ(frame, (std::vector<double>{1, 4, 7, 2, 5, 8, 3, 6, 9}));
}

TEST(GXColBasedTransformMatrixInverse, InvertsInPlace) {
  Frame frame = FromRows({1, 0, 2, 0, 1, 0, 0, 0, 2});
  EXPECT_TRUE(frame.Inverse());
  EXPECT_POINT_EQ(frame, (std::vector<double>{1, 0, -1, 0, 1, 0, 0, 0, 0.5}));
}

TEST(GXColBasedTransformMatrixInverse, TimesTheMatrixIsTheIdentity) {
  support::Random random;
  int inverted = 0;
  for (int i = 0; i < 500; ++i) {
    GXVector vectors[3] = {random.Vector3D(2), random.Vector3D(2), random.Vector3D(2)};
    if ((vectors[0] * vectors[1]).dot(vectors[2]) < 0.5) {
      continue;
    }
    const Frame frame(vectors);
    Frame inverse(frame);
    ASSERT_TRUE(inverse.Inverse());
    ++inverted;
    EXPECT_POINT_NEAR(Product(frame, inverse), kIdentity, 1e-13);
  }
  EXPECT_GT(inverted, 100);
}

TEST(GXColBasedTransformMatrixInverse, ALeftHandedFrameCountsAsSingularAndStays) {
  Frame frame = FromRows({1, 0, 0, 0, -1, 0, 0, 0, 1});
  EXPECT_FALSE(frame.Inverse());
  EXPECT_POINT_EQ(frame, (std::vector<double>{1, 0, 0, 0, -1, 0, 0, 0, 1}));
  Frame zero;
  EXPECT_FALSE(zero.Inverse());
  EXPECT_POINT_EQ(zero, (std::vector<double>(9, 0.0)));
}

TEST(GXColBasedTransformMatrixInverse, ADeterminantOfExactlyTheGuardIsInverted) {
  Frame frame = FromRows({1e-20, 0, 0, 0, 1, 0, 0, 0, 1});
  EXPECT_TRUE(frame.Inverse());
  EXPECT_POINT_EQ(frame, (std::vector<double>{1 / 1e-20, 0, 0, 0, 1, 0, 0, 0, 1}));
  const double below = std::nextafter(1e-20, 0.0);
  Frame singular = FromRows({below, 0, 0, 0, 1, 0, 0, 0, 1});
  EXPECT_FALSE(singular.Inverse());
  EXPECT_POINT_EQ(singular, (std::vector<double>{below, 0, 0, 0, 1, 0, 0, 0, 1}));
}

TEST(GXColBasedTransformMatrixInverse, ADeterminantThatIsNoNumberIsNotBelowTheGuard) {
  Frame frame = FromRows({kNaN, 0, 0, 0, 1, 0, 0, 0, 1});
  EXPECT_TRUE(frame.Inverse());
  EXPECT_TRUE(std::isnan(frame.Base[0].X));
}

TEST(GXColBasedTransformMatrixFromPoints, XRunsToTheSecondPointAndTheThirdLiesInTheXYPlane) {
  const Frame frame(support::Point(1, 1, 1), support::Point(1, 3, 1), support::Point(1, 6, 4));
  EXPECT_POINT_NEAR(frame, (std::vector<double>{0, 1, 0, 0, 0, 1, 1, 0, 0}), 1e-15);
}

TEST(GXColBasedTransformMatrixFromPoints, IsARightHandedFrameOfUnitVectors) {
  support::Random random;
  for (int i = 0; i < 500; ++i) {
    const GX3DPoint p0 = random.Point3D(10);
    const GX3DPoint p1 = random.Point3D(10);
    const GX3DPoint p2 = random.Point3D(10);
    const GXVector x(p0, p1);
    const GXVector y(p0, p2);
    if ((x * y).Len() < 0.1 * x.Len() * y.Len()) {
      continue;
    }
    const Frame frame(p0, p1, p2);
    Frame transposed(frame);
    transposed.Transpose();
    EXPECT_POINT_NEAR(Product(frame, transposed), kIdentity, 1e-14);
    EXPECT_NEAR(frame.Base[0].dot(x), x.Len(), 1e-13);
    EXPECT_NEAR(frame.Base[2].dot(y), 0.0, 1e-12);
    EXPECT_GT(frame.Base[1].dot(y), 0.0);
    EXPECT_POINT_NEAR(frame.Base[0] * frame.Base[1], frame.Base[2], 1e-14);
  }
}

TEST(GXColBasedTransformMatrixFromPoints, PointsInLineKeepTheRawDifferencesAndANullThirdVector) {
  const Frame frame(support::Point(1, 1, 1), support::Point(3, 5, 7), support::Point(4, 7, 10));
  EXPECT_POINT_EQ(frame, (std::vector<double>{2, 4, 6, 3, 6, 9, 0, 0, 0}));
}

TEST(GXColBasedTransformMatrixFromPoints, EqualPointsKeepTheRawDifferences) {
  const GX3DPoint p = support::Point(1, 1, 1);
  EXPECT_POINT_EQ(Frame(p, p, support::Point(2, 3, 4)),
                  (std::vector<double>{0, 0, 0, 1, 2, 3, 0, 0, 0}));
  EXPECT_POINT_EQ(Frame(p, p, p), (std::vector<double>(9, 0.0)));
}

TEST(GXColBasedTransformMatrixFromPoints, ANormalWhoseSquaresVanishStopsTheConstruction) {
  // The third vector is (0, 0, 1e-200); its length is exactly 0 all the same.
  const Frame frame(support::Point(0, 0, 0), support::Point(1e-100, 0, 0),
                    support::Point(0, 1e-100, 0));
  EXPECT_POINT_EQ(frame, (std::vector<double>{1e-100, 0, 0, 0, 1e-100, 0, 0, 0, 1e-100 * 1e-100}));
}

}  // namespace
