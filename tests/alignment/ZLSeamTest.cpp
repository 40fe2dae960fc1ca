#include "ZLSoundBuilders.h"

#include <gtest/gtest.h>

using namespace ZLTestSounds;

namespace {

double medianOf(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

}

// The windows of the fingerprint reach over a seam, so that sound is recognised a little beyond it.
TEST(ZLSeamTest, PiecesEndWhereSomethingElseCameIn)
{
    std::vector<double> beyondEnds;
    std::vector<double> beyondBegins;
    for (unsigned seed = 0; seed < 90; seed += 10) {
        const Sound before = speech(20.0, seed + 1);
        const Sound after = speech(20.0, seed + 2);
        const auto alignment = alignedSounds(heardInRoom(joined(before, speech(5.0, seed + 3), after), seed + 4),
            delivered(joined(before, speech(10.0, seed + 5), after)));
        ASSERT_EQ(alignment.pieces.size(), 2U);
        beyondEnds.push_back(alignment.pieces[0].showEnd() - 20.0);
        beyondBegins.push_back(25.0 - alignment.pieces[1].showStart);
    }
    EXPECT_NEAR(medianOf(beyondEnds), 0.0, 0.04);
    EXPECT_NEAR(medianOf(beyondBegins), 0.0, 0.1);
}
