#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

TEST(TitleScreens, IntroDrawsTheSplashAndABarThatFillsOneNinthPerTick) {
    for (const int counter : {10, 4}) {
        DrawHarness h;
        h.files->addPicture("splash.jpg", 1024, 768);
        h.view.drawIntro(counter);
        ASSERT_EQ(h.canvas.ofKind(Op::DrawPicture).size(), 1u);
        EXPECT_EQ(h.canvas.calls[0].rect, (Rect{0, 0, 640, 480}));
        EXPECT_EQ(h.canvas.filledRects(colors::blue), (std::vector<Rect>{{160, 120, 320, 8}}));
        EXPECT_EQ(h.canvas.filledRects(colors::black), (std::vector<Rect>{{161, 121, 318, 6}}));
        const auto green = h.canvas.filledRects(colors::green);
        ASSERT_EQ(green.size(), counter == 10 ? 0u : 1u);
        if (counter == 4) {
            EXPECT_EQ(green[0], (Rect{161, 121, green[0].width, 6}));
            EXPECT_FLOAT_EQ(green[0].width, static_cast<float>(6 / 9.0 * 298));
        }
    }
}

TEST(TitleScreens, MenuLaysTheHighlightedEntryOverItsBand) {
    const char* entries[] = {"menuAbout.jpg", "menuInstructions.jpg", "menuPractice.jpg",
                             "menuNew.jpg"};
    for (int choice = 0; choice <= 5; ++choice) {
        DrawHarness h;
        h.files->addPicture("menu.jpg", 800, 600);
        for (const char* entry : entries)
            h.files->addPicture(entry, 480, 75);
        h.view.drawMenu(choice);
        const auto pictures = h.canvas.ofKind(Op::DrawPicture);
        const bool highlighted = choice >= 1 && choice <= 4;
        ASSERT_EQ(pictures.size(), highlighted ? 2u : 1u) << choice;
        EXPECT_EQ(pictures[0]->rect, (Rect{0, 0, 640, 480}));
        if (!highlighted)
            continue;
        // Band k reaches one point into the band below it: 299, 239, 179, 119.
        EXPECT_EQ(pictures[1]->picture, h.files->pictures[entries[choice - 1]].get());
        EXPECT_EQ(pictures[1]->rect, (Rect{128, static_cast<float>(359 - 60 * choice), 385, 61}))
            << choice;
    }
}

TEST(TitleScreens, PictureScreensFillTheViewOrLeaveItBlackAndWaitForARedraw) {
    {
        DrawHarness h({1280.0f, 800.0f});
        h.view.drawMenu(2);
        h.view.drawAbout();
        h.view.drawInstructions();
        EXPECT_TRUE(h.canvas.calls.empty()); // no pictures: black
        EXPECT_EQ(h.files->requests, (std::vector<std::string>{"menu.jpg", "menuInstructions.jpg",
                                                               "about.jpg", "instructions.jpg"}));
        const Picture* about = h.files->addPicture("about.jpg", 640, 480);
        const Picture* instructions = h.files->addPicture("instructions.jpg", 300, 900);
        h.view.drawAbout();
        h.view.drawInstructions();
        const auto pictures = h.canvas.ofKind(Op::DrawPicture);
        ASSERT_EQ(pictures.size(), 2u);
        EXPECT_EQ(pictures[0]->picture, about);
        EXPECT_EQ(pictures[1]->picture, instructions);
        EXPECT_EQ(pictures[1]->source, (Rect{0, 0, 300, 900}));
        EXPECT_EQ(pictures[1]->rect, (Rect{0, 0, 1280, 800})); // whatever its proportions
    }

    // Outside a redraw there is no canvas: nothing is drawn, nothing loaded.
    ScopedFakeResources files;
    Game game;
    DrawView view(1e9, game.earth.pos, game.earth);
    view.drawIntro(5);
    view.drawMenu(1);
    view.drawChoice(1, 1);
    view.drawPlay(game);
    view.drawLevel(1, game);
    view.drawCollisionText(game);
    EXPECT_TRUE(files->requests.empty());
}

} // namespace
} // namespace apsis
