#include "physics/numeric.h"
#include "physics/position.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

TEST(Position, FacingSpinDriftAndWrap) {
    EXPECT_EQ(Position().angle, 0.0);               // the default faces +x
    EXPECT_EQ(Position(1, 2, 3, 4).angle, kHalfPi); // built from coordinates it faces up
    EXPECT_EQ(Position(0, 0, 0, 0, 86164.0).av, 7.292123516990375e-05);
    Position source(5, 6, 7, 8);
    source.angle = 1.25;
    const Position respun(source, -21000000.0); // a negative period spins clockwise
    EXPECT_EQ(respun.angle, 1.25);              // a copy keeps its facing and takes the new spin
    EXPECT_EQ(respun.av, -2.991993003418851e-07);

    struct Case {
        double angle, av, dt;
        double x, y, newAngle;
    };
    const Case cases[] = {
        {-1.0, 0.0, 0.0, 10.0, 20.0, kTwoPi - 1.0}, // only normalises
        {6.2, 1.0, 0.25, 10.75, 19.0, 6.2 + 1.0 * 0.25 - kTwoPi},
    };
    for (const Case& c : cases) {
        Position p(10, 20, 3, -4);
        p.angle = c.angle;
        p.av = c.av;
        p.move(c.dt);
        EXPECT_EQ(p.x, c.x);
        EXPECT_EQ(p.y, c.y);
        EXPECT_EQ(p.angle, c.newAngle);
    }
    EXPECT_EQ(sqDist(Position(1, 2, 3, 4), Position(4, 6, 0, 0)), 25.0); // squared: no root
    EXPECT_EQ(velDiff(Position(1, 2, 3, 4), Position(-100, 50, 6, 8)), 5.0);
}

} // namespace
} // namespace apsis
