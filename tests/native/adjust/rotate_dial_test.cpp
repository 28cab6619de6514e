#include <gtest/gtest.h>

#include "rotate_dial.h"

using namespace zv;

TEST(RotateDial, TheCursorPointsFromTheCentreOfTheDial)
{
    // A dial from (100, 200) to (156, 256): its centre is (128, 228).
    auto at = [](int x, int y) { return DialAngleFromPoint(x, y, 100, 200, 156, 256); };
    EXPECT_EQ(at(128, 210), 0);
    EXPECT_EQ(at(150, 228), 90);
    EXPECT_EQ(at(128, 250), 180);
    EXPECT_EQ(at(105, 228), 270);
    // The upper left quarter gives a negative angle, which the field folds.
    EXPECT_EQ(at(118, 218), -45);
    int folded = 0;
    EXPECT_TRUE(FoldAngle(at(118, 218), &folded));
    EXPECT_EQ(folded, 315);
    // On the centre itself atan2(0, 0) is 0, so a quarter turn.
    EXPECT_EQ(at(128, 228), 90);
}

TEST(RotateDial, TypedAnglesComeOntoTheCircleAndSpinsStopAtItsEnds)
{
    struct Case {
        int typed, shown;
        bool changed;
    };
    const Case cases[] = {{400, 40, true}, {720, 0, true}, {360, 360, false}, {361, 1, true},
                          {-10, 350, true}, {-360, 0, true}, {0, 0, false},   {359, 359, false}};
    for (const Case& c : cases) {
        int folded = -1;
        EXPECT_EQ(FoldAngle(c.typed, &folded), c.changed) << c.typed;
        EXPECT_EQ(folded, c.shown) << c.typed;
    }
    EXPECT_EQ(SpinAngle(360, true), 360);
    EXPECT_EQ(SpinAngle(0, false), 0);
    EXPECT_EQ(SpinAngle(359, true), 360);
    EXPECT_EQ(SpinAngle(1, false), 0);
}

TEST(RotateDial, ThePointerPointsWhereTheAngleSays)
{
    const DialPointXY up = DialPoint(50, 0, 40), right = DialPoint(50, 90, 40), down = DialPoint(50, 180, 40);
    EXPECT_EQ(up.x, 50);
    EXPECT_EQ(up.y, 10);
    EXPECT_EQ(right.x, 90);
    EXPECT_EQ(right.y, 50);
    EXPECT_EQ(down.x, 50);
    EXPECT_EQ(down.y, 90);
}
