// The block-diagonal matrix with a border against its dense form: the inverse kept by
// parts must be the inverse of the whole matrix, entry by entry and applied to a
// vector, and one block alone must give the plain elimination's numbers.
#include "core/BorderedMatrix.h"

#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

namespace morvane {
namespace {

// Parameters 0, 1 in block 0; 2 shared; 3, 4 in block 1: the shape of two lines with
// their own intercepts and natural responses and a common slope, mixed in order.
BorderedMatrix TwoBlocksAndAShared() {
    BorderedMatrix m(BorderedPlaces::Of({0, 0, -1, 1, 1}, 2));
    const double dense[5][5] = {
        {5, 1, 2, 0, 0}, {1, 4, 1, 0, 0}, {2, 1, 9, 3, 2}, {0, 0, 3, 6, 2}, {0, 0, 2, 2, 5}};
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < 5; ++j) {
            if (dense[i][j] != 0)
                m.add(i, j, dense[i][j]);
        }
    }
    return m;
}

TEST(BorderedMatrix, KeepsWhatIsAdded) {
    const BorderedMatrix m = TwoBlocksAndAShared();
    EXPECT_EQ(m.at(0, 1), 1.0);
    EXPECT_EQ(m.at(2, 2), 9.0);
    EXPECT_EQ(m.at(2, 3), 3.0);
    EXPECT_EQ(m.at(4, 2), 2.0);
    EXPECT_EQ(m.at(0, 3), 0.0);  // two blocks never meet
}

TEST(BorderedMatrix, TheInverseTimesTheMatrixIsTheIdentity) {
    const BorderedMatrix m = TwoBlocksAndAShared();
    BorderedInverse inverse;
    ASSERT_TRUE(m.invert(inverse));
    EXPECT_TRUE(inverse.finite());
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < 5; ++j) {
            double sum = 0;
            for (int k = 0; k < 5; ++k)
                sum += m.at(i, k) * inverse.at(k, j);
            EXPECT_NEAR(sum, i == j ? 1.0 : 0.0, 1e-14) << i << ", " << j;
        }
    }
    // The two blocks meet through the shared parameter: their entries of the inverse
    // are not 0.
    EXPECT_NE(inverse.at(0, 4), 0.0);
}

TEST(BorderedMatrix, TheInverseAppliedToAVectorSolvesTheSystem) {
    const BorderedMatrix m = TwoBlocksAndAShared();
    BorderedInverse inverse;
    ASSERT_TRUE(m.invert(inverse));
    const std::vector<double> v{1, -2, 3, 0.5, 4};
    const std::vector<double> x = inverse.times(v);
    ASSERT_EQ(x.size(), 5u);
    for (int i = 0; i < 5; ++i) {
        double back = 0, byEntries = 0;
        for (int k = 0; k < 5; ++k) {
            back += m.at(i, k) * x[k];
            byEntries += inverse.at(i, k) * v[k];
        }
        EXPECT_NEAR(back, v[i], 1e-13) << i;
        EXPECT_NEAR(x[i], byEntries, 1e-14) << i;
    }
}

// One block and nothing shared is the plain elimination: [[4, 2], [2, 3]] has the
// inverse [[3, -2], [-2, 4]] / 8, which binary fractions hold exactly.
TEST(BorderedMatrix, OneBlockIsThePlainElimination) {
    BorderedMatrix m(BorderedPlaces::Of({0, 0}, 1));
    m.add(0, 0, 4);
    m.add(0, 1, 2);
    m.add(1, 0, 2);
    m.add(1, 1, 3);
    BorderedInverse inverse;
    ASSERT_TRUE(m.invert(inverse));
    EXPECT_EQ(inverse.at(0, 0), 0.375);
    EXPECT_EQ(inverse.at(0, 1), -0.25);
    EXPECT_EQ(inverse.at(1, 0), -0.25);
    EXPECT_EQ(inverse.at(1, 1), 0.5);
    EXPECT_EQ(inverse.times({8, 0}), (std::vector<double>{3, -2}));
}

TEST(BorderedMatrix, ASingularBlockOrComplementIsRefused) {
    BorderedInverse inverse;
    BorderedMatrix singularBlock(BorderedPlaces::Of({0, 0, 1}, 2));
    singularBlock.add(0, 0, 1);
    singularBlock.add(0, 1, 2);
    singularBlock.add(1, 0, 2);
    singularBlock.add(1, 1, 4);
    singularBlock.add(2, 2, 1);
    EXPECT_FALSE(singularBlock.invert(inverse));
    // Each block is regular, but the shared parameter is a copy of block 0's: the
    // Schur complement is 0.
    BorderedMatrix singularComplement(BorderedPlaces::Of({0, -1}, 1));
    singularComplement.add(0, 0, 2);
    singularComplement.add(0, 1, 2);
    singularComplement.add(1, 0, 2);
    singularComplement.add(1, 1, 2);
    EXPECT_FALSE(singularComplement.invert(inverse));
    BorderedMatrix empty(BorderedPlaces::Of({0, 1}, 2));
    EXPECT_FALSE(empty.invert(inverse));
}

TEST(BorderedMatrix, TwoBlocksThatMeetAreAFaultOfTheCaller) {
    BorderedMatrix m(BorderedPlaces::Of({0, 1}, 2));
    EXPECT_THROW(m.add(0, 1, 1.0), std::logic_error);
}

}  // namespace
}  // namespace morvane
