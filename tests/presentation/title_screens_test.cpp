#include "support/draw_harness.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

TEST(Intro, DrawsTheSplashAndABarThatFillsOneNinthPerTick) {
    struct Case {
        int counter;
        float green; // points of green, 0 for none
    };
    const Case cases[] = {{10, 0.0f},
                          {9, static_cast<float>(298.0 / 9)},
                          {5, static_cast<float>(5.0 / 9 * 298)},
                          {1, 298.0f}};
    for (const Case& c : cases) {
        DrawHarness h;
        const Picture* splash = h.files->addPicture("splash.jpg", 1024, 768);
        h.view.drawIntro(c.counter);

        const auto pictures = h.canvas.pictures();
        ASSERT_EQ(pictures.size(), 1u);
        EXPECT_EQ(pictures[0]->picture, splash);
        EXPECT_EQ(pictures[0]->source, (Rect{0, 0, 1024, 768}));
        EXPECT_EQ(pictures[0]->rect, (Rect{0, 0, 640, 480}));
        EXPECT_EQ(pictures[0]->opacity, 1.0);
        EXPECT_EQ(h.canvas.filledRects(colors::blue), (std::vector<Rect>{{160, 120, 320, 8}}));
        EXPECT_EQ(h.canvas.filledRects(colors::black), (std::vector<Rect>{{161, 121, 318, 6}}));
        const auto green = h.canvas.filledRects(colors::green);
        if (c.green == 0.0f) {
            EXPECT_TRUE(green.empty()) << c.counter;
        } else {
            ASSERT_EQ(green.size(), 1u);
            EXPECT_EQ(green[0].x, 161.0f);
            EXPECT_EQ(green[0].y, 121.0f);
            EXPECT_FLOAT_EQ(green[0].width, c.green) << c.counter;
            EXPECT_EQ(green[0].height, 6.0f);
        }
    }
}

TEST(Intro, DrawsTheBarOnBlackWithoutASplash) {
    DrawHarness h;
    h.view.drawIntro(1);
    EXPECT_TRUE(h.canvas.pictures().empty());
    EXPECT_EQ(h.canvas.count(RecordingCanvas::Op::FillRect), 3u);
}

TEST(Menu, LaysTheHighlightedEntryOverItsBand) {
    struct Case {
        int choice;
        const char* entry; // nullptr: background alone
        Rect band;
    };
    const Case cases[] = {
        {1, "menuAbout.jpg", {128, 299, 385, 61}},
        {2, "menuInstructions.jpg", {128, 239, 385, 61}},
        {3, "menuPractice.jpg", {128, 179, 385, 61}},
        {4, "menuNew.jpg", {128, 119, 385, 61}},
        {0, nullptr, {}},
        {5, nullptr, {}},
    };
    for (const Case& c : cases) {
        DrawHarness h;
        const Picture* menu = h.files->addPicture("menu.jpg", 800, 600);
        for (const char* name :
             {"menuAbout.jpg", "menuInstructions.jpg", "menuPractice.jpg", "menuNew.jpg"})
            h.files->addPicture(name, 480, 75);
        h.view.drawMenu(c.choice);

        const auto pictures = h.canvas.pictures();
        ASSERT_EQ(pictures.size(), c.entry ? 2u : 1u) << c.choice;
        EXPECT_EQ(pictures[0]->picture, menu);
        EXPECT_EQ(pictures[0]->rect, (Rect{0, 0, 640, 480}));
        if (c.entry) {
            EXPECT_EQ(pictures[1]->picture, h.files->pictures[c.entry].get()) << c.choice;
            EXPECT_EQ(pictures[1]->source, (Rect{0, 0, 480, 75}));
            EXPECT_EQ(pictures[1]->rect, c.band) << c.choice;
        }
    }
}

TEST(Menu, MissingPicturesLeaveTheScreenBlack) {
    DrawHarness h;
    h.view.drawMenu(2);
    h.view.drawAbout();
    h.view.drawInstructions();
    EXPECT_TRUE(h.canvas.calls.empty());
    EXPECT_EQ(h.files->requests, (std::vector<std::string>{"menu.jpg", "menuInstructions.jpg",
                                                           "about.jpg", "instructions.jpg"}));
}

TEST(PictureScreens, FillTheWholeViewWhateverThePicturesProportions) {
    DrawHarness h({1280.0f, 800.0f});
    const Picture* about = h.files->addPicture("about.jpg", 640, 480);
    const Picture* instructions = h.files->addPicture("instructions.jpg", 300, 900);
    h.view.drawAbout();
    h.view.drawInstructions();
    const auto pictures = h.canvas.pictures();
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0]->picture, about);
    EXPECT_EQ(pictures[0]->source, (Rect{0, 0, 640, 480}));
    EXPECT_EQ(pictures[0]->rect, (Rect{0, 0, 1280, 800}));
    EXPECT_EQ(pictures[1]->picture, instructions);
    EXPECT_EQ(pictures[1]->source, (Rect{0, 0, 300, 900}));
    EXPECT_EQ(pictures[1]->rect, (Rect{0, 0, 1280, 800}));
}

TEST(Screens, DrawNothingOutsideARedraw) {
    ScopedFakeResources files;
    files->addPicture("splash.jpg", 10, 10);
    Game game;
    DrawView view(1e9, game.earth.pos, game.earth);
    // No canvas is current: every operation must return quietly.
    view.drawIntro(5);
    view.drawMenu(1);
    view.drawChoice(1, 1);
    view.drawGame(game);
    view.drawPlay(game);
    view.drawLevel(1, game);
    view.drawCollisionText(game);
    EXPECT_TRUE(files->requests.empty());
}

} // namespace
} // namespace apsis
