#include "assets/image.h"
#include "support/fake_resources.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Requests = std::vector<std::string>;

TEST(Image, LoadsLazilyOnceByBaseNameAndTypeAndCopiesShareIt) {
    ScopedFakeResources fake;
    const Picture* earth = fake->addPicture("earth.jpg", 512.0f, 256.0f);
    Image image("earth.jpg", 8);
    const Image copy = image; // made before anything is loaded
    EXPECT_TRUE(fake->requests.empty());
    EXPECT_EQ(image.getWidth(), 512.0f); // the whole sheet, not one frame
    EXPECT_EQ(image.getHeight(), 256.0f);
    Image second = copy;
    EXPECT_EQ(second.getImage(), earth);
    EXPECT_EQ(fake->requests, Requests{"earth.jpg"}); // one decode for all three

    // Another picture: loaded at once, and copies keep what they shared.
    const Picture* station = fake->addPicture("station.gif", 100.0f, 100.0f);
    image.loadImage("station.gif", 1);
    EXPECT_EQ(fake->requests.back(), "station.gif");
    EXPECT_EQ(image.getRect(0), (Rect{0.0f, 0.0f, 100.0f, 100.0f}));
    EXPECT_EQ(image.getImage(), station);
    EXPECT_EQ(copy.img->picture.get(), earth);

    // Only the first two parts of the name count.
    EXPECT_EQ(Image("earth.jpg.old", 8).getImage(), earth);

    // A missing picture is empty and asked for at every use, until found.
    Image venus("venus.jpg", 8);
    EXPECT_EQ(venus.getRect(9), (Rect{0.0f, 0.0f, 0.0f, 0.0f}));
    const auto tries = fake->requests.size();
    EXPECT_EQ(venus.getImage(), nullptr);
    EXPECT_EQ(fake->requests.size(), tries + 1);
    fake->addPicture("venus.jpg", 256.0f, 256.0f);
    EXPECT_EQ(venus.getWidth(), 256.0f);
    EXPECT_EQ(venus.getHeight(), 256.0f);
    EXPECT_EQ(fake->requests.size(), tries + 2);
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
        {"sun.jpg", 6, 35, {500.0f, 0.0f, 100.0f, 100.0f}},
        {"sheet.jpg", 8, 64, {0.0f, -64.0f, 64.0f, 64.0f}}, // past the last: below the sheet
        {"single.gif", 0, 0, {0.0f, 0.0f, 40.0f, 30.0f}},   // no frames along the side is one
    };
    for (const Case& c : cases) {
        Image image(c.name, c.spritesWide);
        EXPECT_EQ(image.getRect(c.frame), c.expected) << c.name << " frame " << c.frame;
    }
}

} // namespace
} // namespace apsis
