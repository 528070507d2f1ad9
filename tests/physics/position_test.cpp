#include "physics/numeric.h"
#include "physics/position.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

TEST(Position, FormsFaceAndSpinAsBuilt) {
    const Position resting;
    EXPECT_EQ(resting.angle, 0.0); // the default faces +x
    EXPECT_EQ(resting.av, 0.0);

    const Position fromCoordinates(1, 2, 3, 4);
    EXPECT_EQ(fromCoordinates.x, 1.0);
    EXPECT_EQ(fromCoordinates.vy, 4.0);
    EXPECT_EQ(fromCoordinates.angle, kHalfPi); // built from coordinates it faces up
    EXPECT_EQ(fromCoordinates.av, 0.0);

    struct Case {
        double period;
        double spin;
    };
    const Case spins[] = {
        {86164.0, 7.292123516990375e-05},
        {-21000000.0, -2.991993003418851e-07}, // clockwise
        {3600.0, 0.0017453292519943296},
    };
    for (const Case& c : spins) {
        EXPECT_EQ(Position(0, 0, 0, 0, c.period).av, c.spin) << c.period;
        EXPECT_EQ(Position(0, 0, 0, 0, c.period).angle, kHalfPi) << c.period;
        Position source(5, 6, 7, 8);
        source.angle = 1.25;
        source.av = 9.0;
        const Position respun(source, c.period);
        EXPECT_EQ(respun.x, 5.0);
        EXPECT_EQ(respun.y, 6.0);
        EXPECT_EQ(respun.vx, 7.0);
        EXPECT_EQ(respun.vy, 8.0);
        EXPECT_EQ(respun.angle, 1.25);
        EXPECT_EQ(respun.av, c.spin);
    }
}

TEST(Position, MoveDriftsByVelocityAndKeepsTheAngleInOneTurn) {
    struct Case {
        Position start;
        double dt;
        double x, y, angle;
    };
    auto at = [](double x, double y, double vx, double vy, double angle, double av) {
        Position p(x, y, vx, vy);
        p.angle = angle;
        p.av = av;
        return p;
    };
    const Case cases[] = {
        {at(10, 20, 3, -4, 1.0, 0.0), 2.0, 16.0, 12.0, 1.0},
        {at(10, 20, 3, -4, -1.0, 0.0), 0.0, 10.0, 20.0, kTwoPi - 1.0}, // only normalises
        {at(0, 0, 0, 0, 6.2, 1.0), 0.2, 0.0, 0.0, 6.2 + 1.0 * 0.2 - kTwoPi},
        {at(0, 0, 0, 0, 0.1, -1.0), 0.2, 0.0, 0.0, 0.1 - 0.2 + kTwoPi},
    };
    for (const Case& c : cases) {
        Position p = c.start;
        p.move(c.dt);
        EXPECT_EQ(p.x, c.x);
        EXPECT_EQ(p.y, c.y);
        EXPECT_EQ(p.angle, c.angle);
        EXPECT_EQ(p.vx, c.start.vx); // velocities stay
        EXPECT_EQ(p.vy, c.start.vy);
        EXPECT_EQ(p.av, c.start.av);
    }
}

TEST(Position, DistanceAndRelativeSpeed) {
    const Position a(1, 2, 3, 4);
    const Position b(4, 6, 3, 4);
    const Position c(-100, 50, 6, 8);
    EXPECT_EQ(sqDist(a, a), 0.0);
    EXPECT_EQ(sqDist(a, b), 25.0); // squared: no root taken
    EXPECT_EQ(sqDist(b, a), 25.0);
    EXPECT_EQ(velDiff(a, b), 0.0); // equal velocities, whatever the places
    EXPECT_EQ(velDiff(a, c), 5.0);
}

} // namespace
} // namespace apsis
