#include "assets/image.h"
#include "support/fake_resources.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Requests = std::vector<std::string>;

TEST(Image, LoadsLazilyOnceAndByBaseNameAndType) {
    ScopedFakeResources fake;
    const Picture* earth = fake->addPicture("earth.jpg", 512.0f, 256.0f);
    Image image("earth.jpg", 8);
    EXPECT_TRUE(fake->requests.empty()); // building reads nothing
    EXPECT_EQ(image.getWidth(), 512.0f); // the whole sheet, not one frame
    EXPECT_EQ(image.getHeight(), 256.0f);
    EXPECT_EQ(image.getImage(), earth);
    image.loadImage();
    EXPECT_EQ(fake->requests, Requests{"earth.jpg"}); // loaded once

    // Only the first two parts of the name count.
    Image dotted("earth.jpg.old", 8);
    EXPECT_EQ(dotted.getImage(), earth);
    Image bare("earth", 1);
    EXPECT_EQ(bare.getImage(), nullptr);
    EXPECT_EQ(fake->requests.back(), "earth.");
}

TEST(Image, FramesAreNumberedFromTheTopLeft) {
    ScopedFakeResources fake;
    fake->addPicture("sheet.jpg", 512.0f, 512.0f);
    fake->addPicture("single.gif", 40.0f, 30.0f);
    fake->addPicture("sun.jpg", 600.0f, 600.0f);
    struct Case {
        const char* name;
        int spritesWide;
        int frame;
        Rect expected;
    };
    const Case cases[] = {
        {"sheet.jpg", 8, 0, {0.0f, 448.0f, 64.0f, 64.0f}},
        {"sheet.jpg", 8, 7, {448.0f, 448.0f, 64.0f, 64.0f}},
        {"sheet.jpg", 8, 8, {0.0f, 384.0f, 64.0f, 64.0f}},
        {"sheet.jpg", 8, 63, {448.0f, 0.0f, 64.0f, 64.0f}},
        {"sheet.jpg", 8, 20, {256.0f, 320.0f, 64.0f, 64.0f}},
        {"sun.jpg", 6, 35, {500.0f, 0.0f, 100.0f, 100.0f}},
        {"single.gif", 1, 0, {0.0f, 0.0f, 40.0f, 30.0f}},
        // Past the last frame the rectangle lies below the sheet.
        {"sheet.jpg", 8, 64, {0.0f, -64.0f, 64.0f, 64.0f}},
        // No frames along the side counts as one.
        {"single.gif", 0, 0, {0.0f, 0.0f, 40.0f, 30.0f}},
    };
    for (const Case& c : cases) {
        Image image(c.name, c.spritesWide);
        EXPECT_EQ(image.getRect(c.frame), c.expected) << c.name << " frame " << c.frame;
    }
}

TEST(Image, CopiesShareOnePicture) {
    ScopedFakeResources fake;
    const Picture* moon = fake->addPicture("moon.jpg", 64.0f, 64.0f);
    Image original("moon.jpg", 8);
    const Image copy = original; // made before anything is loaded
    original.loadImage();
    EXPECT_EQ(copy.img->picture.get(), moon);
    Image second = copy;
    EXPECT_EQ(second.getImage(), moon);
    EXPECT_EQ(fake->requests, Requests{"moon.jpg"}); // one decode for all three
}

TEST(Image, LoadImageMovesOnToTheNewPictureAtOnce) {
    ScopedFakeResources fake;
    const Picture* ship = fake->addPicture("ship.gif", 512.0f, 512.0f);
    const Picture* station = fake->addPicture("station.gif", 100.0f, 100.0f);
    Image image("ship.gif", 8);
    EXPECT_EQ(image.getImage(), ship);
    const Image copy = image;

    image.loadImage("station.gif", 1);
    EXPECT_EQ(fake->requests, (Requests{"ship.gif", "station.gif"})); // loaded at once
    EXPECT_STREQ(image.name, "station.gif");
    EXPECT_EQ(image.spritesWide, 1);
    EXPECT_EQ(image.getImage(), station);
    EXPECT_EQ(image.getRect(0), (Rect{0.0f, 0.0f, 100.0f, 100.0f}));
    EXPECT_EQ(copy.img->picture.get(), ship); // a copy keeps what it shared
}

TEST(Image, AMissingPictureIsEmptyAndTriedAgain) {
    ScopedFakeResources fake;
    Image image("venus.jpg", 8);
    EXPECT_EQ(image.getImage(), nullptr);
    EXPECT_EQ(image.getWidth(), 0.0f);
    EXPECT_EQ(image.getHeight(), 0.0f);
    EXPECT_EQ(image.getRect(9), (Rect{0.0f, 0.0f, 0.0f, 0.0f}));
    const auto tries = fake->requests.size();
    EXPECT_GE(tries, 3u); // every use asks again

    const Picture* venus = fake->addPicture("venus.jpg", 256.0f, 256.0f);
    EXPECT_EQ(image.getWidth(), 256.0f);
    EXPECT_EQ(image.getImage(), venus);
    EXPECT_EQ(fake->requests.size(), tries + 1); // and stops asking once found
}

} // namespace
} // namespace apsis
