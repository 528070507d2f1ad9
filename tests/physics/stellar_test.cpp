#include "physics/numeric.h"
#include "physics/stellar.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

Stellar bodyAt(double x, double y, double mass = 0.0) {
    Stellar body("Body", mass, 10.0, 5.0, "body.gif", 1);
    body.pos.x = x;
    body.pos.y = y;
    return body;
}

TEST(Stellar, GravityIsOneSidedAndAlongTheLine) {
    Stellar body = bodyAt(0.0, 0.0, 7.0); // its own mass plays no part
    body.pos.vx = 2.0;
    const Stellar puller = bodyAt(-600.0, 800.0, 6.0e24);
    body.gravTo(puller, 3.0);
    const double dv = G * 6.0e24 / (1000.0 * 1000.0) * 3.0;
    EXPECT_NEAR(body.pos.vx - 2.0, -0.6 * dv, dv * 1e-12);
    EXPECT_NEAR(body.pos.vy, 0.8 * dv, dv * 1e-12);
    EXPECT_EQ(body.pos.y, 0.0);    // only the velocity changes
    EXPECT_EQ(puller.pos.vy, 0.0); // and only the pulled body's
}

TEST(Stellar, PutInOrbitAroundPlacesOnACircularAntiClockwiseOrbit) {
    const double radius = 7.0e6;
    const double v = std::sqrt(G * 2.0e24 / radius);
    Stellar center = bodyAt(1.0e9, -2.0e9, 2.0e24);
    center.pos.vx = 300.0;
    center.pos.vy = -40.0;
    Stellar body = bodyAt(5.0, 5.0);
    body.isActive = false;
    body.pos.av = 0.25;
    body.putInOrbitAround(center, radius, 4.0);
    EXPECT_NEAR(body.pos.x - center.pos.x, std::cos(4.0) * radius, 1e-6);
    EXPECT_NEAR(body.pos.y - center.pos.y, std::sin(4.0) * radius, 1e-6);
    // A quarter turn ahead of the radius, on top of the centre's own velocity.
    EXPECT_NEAR(body.pos.vx - 300.0, -std::sin(4.0) * v, 1e-9);
    EXPECT_NEAR(body.pos.vy + 40.0, std::cos(4.0) * v, 1e-9);
    EXPECT_EQ(body.pos.angle, 4.0); // faces away from the centre
    EXPECT_EQ(body.pos.av, 0.25);   // its spin is its own
    EXPECT_TRUE(body.isActive);
    EXPECT_EQ(body.mainInfluence, &center);
}

TEST(Stellar, FrameFollowsTheFacingClockwiseFromUp) {
    struct Case {
        double angle;
        int spritesWide;
        int frame;
    };
    const Case cases[] = {
        {0.0, 8, 16},
        {kHalfPi - 0.01, 8, 0},
        {kHalfPi + 0.01, 8, 63},
        {kPi, 6, 27},
        // Just past facing up, the clockwise angle rounds to a whole turn: facing up again.
        {std::nextafter(kHalfPi, 4.0), 8, 0},
        // b / (2*pi) * n * n, left to right: by n * n at once it would be 4, and 21 if b were
        // multiplied before the division.
        {0.698131700797732, 6, 5},
        {-2.0943951023931953, 6, 20},
        {2.5, 0, 0}, // a sheet said to have no frames is one frame
    };
    for (const Case& c : cases)
        EXPECT_EQ(frameForAngle(c.angle, c.spritesWide), c.frame)
            << c.angle << " on " << c.spritesWide;
}

} // namespace
} // namespace apsis
