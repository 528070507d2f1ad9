#include "physics/numeric.h"
#include "physics/stellar.h"
#include "support/fake_resources.h"

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
    // G M = 1000.5 with M = 1.5e13: a pull of 1.0005e-3 m/s^2 at 1000 m.
    Stellar pulled = bodyAt(0.0, 0.0);
    const Stellar above = bodyAt(0.0, 1000.0, 1.5e13);
    pulled.gravTo(above, 1.0);
    EXPECT_NEAR(pulled.pos.vy, 1.0005e-3, 1e-15);
    EXPECT_NEAR(pulled.pos.vx, 0.0, 1e-18); // cos(pi/2) leaves a trace, no more
    EXPECT_EQ(pulled.pos.y, 0.0);           // only the velocity changes
    EXPECT_EQ(above.pos.vy, 0.0);

    struct Case {
        double x, y; // where the pulling body stands
    };
    const Case directions[] = {{1000.0, 0.0}, {-600.0, 800.0}, {0.0, -2000.0}, {3.0e8, 4.0e8}};
    for (const Case& c : directions) {
        Stellar body = bodyAt(0.0, 0.0, 7.0); // its own mass plays no part
        body.pos.vx = 2.0;
        const Stellar puller = bodyAt(c.x, c.y, 6.0e24);
        body.gravTo(puller, 3.0);
        const double r = std::hypot(c.x, c.y);
        const double dv = G * 6.0e24 / (r * r) * 3.0;
        EXPECT_NEAR(body.pos.vx - 2.0, dv * c.x / r, dv * 1e-12) << c.x << "," << c.y;
        EXPECT_NEAR(body.pos.vy, dv * c.y / r, dv * 1e-12) << c.x << "," << c.y;
    }
}

TEST(Stellar, PutInOrbitAroundPlacesOnACircularAntiClockwiseOrbit) {
    const double gm = G * 2.0e24;
    struct Case {
        double angle;
        double x, y;   // expected place relative to the centre
        double vx, vy; // expected velocity relative to the centre, in units of the circular speed
    };
    const Case cases[] = {
        {0.0, 1.0, 0.0, 0.0, 1.0},
        {kHalfPi, 0.0, 1.0, -1.0, 0.0},
        {kPi, -1.0, 0.0, 0.0, -1.0},
        {4.0, std::cos(4.0), std::sin(4.0), -std::sin(4.0), std::cos(4.0)},
    };
    for (const Case& c : cases) {
        Stellar center = bodyAt(1.0e9, -2.0e9, 2.0e24);
        center.pos.vx = 300.0;
        center.pos.vy = -40.0;
        Stellar body = bodyAt(5.0, 5.0);
        body.isActive = false;
        body.pos.av = 0.25;
        const double radius = 7.0e6;
        const double v = std::sqrt(gm / radius);
        body.putInOrbitAround(center, radius, c.angle);
        EXPECT_NEAR(body.pos.x - center.pos.x, c.x * radius, 1e-6) << c.angle;
        EXPECT_NEAR(body.pos.y - center.pos.y, c.y * radius, 1e-6) << c.angle;
        EXPECT_NEAR(body.pos.vx - 300.0, c.vx * v, 1e-9) << c.angle;
        EXPECT_NEAR(body.pos.vy + 40.0, c.vy * v, 1e-9) << c.angle;
        EXPECT_EQ(body.pos.angle, c.angle); // faces away from the centre
        EXPECT_EQ(body.pos.av, 0.25);       // its spin is its own
        EXPECT_TRUE(body.isActive);
        EXPECT_EQ(body.mainInfluence, &center);
    }

    // At angle 0 the x part of the velocity is cos(pi/2) * v: tiny, but not zero.
    Stellar center = bodyAt(0.0, 0.0, 2.0e24);
    Stellar body = bodyAt(0.0, 0.0);
    body.putInOrbitAround(center, 7.0e6, 0.0);
    EXPECT_NE(body.pos.vx, 0.0);
    EXPECT_LT(std::fabs(body.pos.vx), 1e-12);
}

TEST(Stellar, CircularSpeedsOfTheWorld) {
    Stellar sun = bodyAt(0.0, 0.0, E(1.98, 30));
    Stellar earth = bodyAt(0.0, 0.0, E(5.98, 24));
    Stellar ship = bodyAt(0.0, 0.0);
    earth.putInOrbitAround(sun, E(1.49, 11), 1.0);
    ship.putInOrbitAround(earth, 6678000.0, 2.0);
    EXPECT_NEAR(std::hypot(earth.pos.vx, earth.pos.vy), 29771.6, 0.05);
    EXPECT_NEAR(velDiff(ship.pos, earth.pos), 7728.4, 0.05);
}

TEST(Stellar, FrameFollowsTheFacingClockwiseFromUp) {
    struct Case {
        double angle;
        int spritesWide;
        int frame;
    };
    const Case cases[] = {
        {kHalfPi, 8, 0},
        {0.0, 8, 16},
        {kPi, 8, 48},
        {3 * kHalfPi, 8, 32},
        {kHalfPi - 0.01, 8, 0},
        {kHalfPi + 0.01, 8, 63},
        {kPi, 6, 27},
        {0.0, 6, 9},
        {1.0, 1, 0},
        {4.0, 1, 0},
        // Just past facing up, the clockwise angle rounds to a whole turn: facing up again.
        {std::nextafter(kHalfPi, 4.0), 8, 0},
        {kHalfPi - kTwoPi, 8, 0},
        // b / (2*pi) * n * n, left to right: by n * n at once it would be 4, and 21 if b were
        // multiplied before the division.
        {0.698131700797732, 6, 5},
        {-2.0943951023931953, 6, 20},
        // A sheet said to have no frames is one frame.
        {0.0, 0, 0},
        {2.5, -3, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(frameForAngle(c.angle, c.spritesWide), c.frame)
            << c.angle << " on " << c.spritesWide;

    // Every frame covers an equal slice of the turn, clockwise from up.
    for (int frame = 0; frame < 64; ++frame) {
        const double start = kHalfPi - frame * (kTwoPi / 64.0);
        EXPECT_EQ(frameForAngle(start - 1e-9, 8), frame) << frame;
        EXPECT_EQ(frameForAngle(start - kTwoPi / 64.0 + 1e-9, 8), frame) << frame;
    }
}

TEST(Stellar, ImageRectAndCopiesShareThePicture) {
    ScopedFakeResources fake;
    fake->addPicture("earth.jpg", 512.0f, 512.0f);
    Stellar earth("Earth", 1.0, 1.0, 1.0, "earth.jpg", 8);
    earth.pos.angle = kPi; // facing -x: frame 48, the first of the bottom row but one
    EXPECT_EQ(earth.getImageRect(), (Rect{0.0f, 64.0f, 64.0f, 64.0f}));

    Stellar center = bodyAt(0.0, 0.0, 1.0e20);
    earth.mainInfluence = &center;
    const Stellar copy = earth;
    EXPECT_EQ(copy.mainInfluence, &center);
    EXPECT_EQ(copy.img.img, earth.img.img);
    EXPECT_STREQ(copy.name, "Earth");
}

} // namespace
} // namespace apsis
