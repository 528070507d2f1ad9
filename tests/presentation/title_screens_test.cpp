#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

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
