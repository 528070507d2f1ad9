#pragma once

#include "assets/rect.h"
#include "physics/position.h"
#include "physics/stellar.h"

#include <string>
#include <vector>

namespace apsis {

struct Game;
struct TextStyle;
class Canvas;

// A place in the view, before it is narrowed to the canvas's single precision.
struct ViewPoint {
    double x = 0.0; // points from the left edge
    double y = 0.0; // points from the bottom edge
};

// The camera, the size of the view, the zoom indicator, and every drawing operation of the game.
// The drawing operations draw on the current canvas, after initSizes in the same redraw.
struct DrawView {
    double viewScale;        // m of world across the whole width of the view: the zoom
    Position viewCenter;     // the world point at the middle of the view (only x and y are used)
    Stellar viewTarget;      // a snapshot of the body the camera follows
    double viewWidth = 0.0;  // points
    double viewHeight = 0.0; // points
    double viewScaleH = 0.0; // m of world across the whole height of the view
    double zoomRect = 0.0;   // size of the zoom indicator as a fraction of the view; 0 shows none
    // Where the last flight scene wrote the bodies' names and its notices over the middle of the
    // view, view points: the aids keep their labels clear of them.
    std::vector<Rect> textsDrawn;
    double craftRadius = 0.0; // points, half the width the last flight scene drew the craft at
    bool isPlatingReadOuts = false; // the aids are on: the flight read-outs sit on plates too

    DrawView(double viewScale, const Position& center, const Stellar& target);

    // Reads the size of the canvas being drawn and derives viewScaleH. Outside a redraw, or on a
    // surface without area, the previous sizes stay.
    void initSizes();

    // World to view: where a world point (m) lands, and how many points a world length covers.
    ViewPoint worldToView(double x, double y) const;
    double lengthToView(double metres) const;
    // One flight frame of the camera: the centre closes 12% of its distance to viewTarget and,
    // while the world runs, moves on with the target's velocity over timeStep seconds.
    void moveCamera(double timeStep, bool isRunning);

    // One body, as its sprite frame when at least 10 points across, else as a symbol of the given
    // style: 0 dot labelled above, 1 dot labelled below, 2 cross, 3 dart, 4 dart with flame.
    void drawStel(Stellar& body, int style);
    // The flight scene: bodies, zoom indicator and head-up display.
    void drawGame(Game& game);

    // Full-window screens.
    void drawIntro(int counter);
    void drawMenu(int choice);
    void drawAbout();
    void drawInstructions();
    void drawChoice(int level, int difficulty);

    // Screens over the flight scene.
    void drawLevel(int level, Game& game);
    void drawLevelComplete(double t, Game& game);
    void drawFadeToWhite(double t, Game& game);

    // Flight with its overlays.
    void drawPlay(Game& game);
    void drawFlag(Game& game);
    void drawCountDown(double t, Game& game);
    void drawCollisionText(Game& game);

    // Draws a notice centred as drawCentredText does and remembers where it stands.
    void drawNotice(Canvas& canvas, const std::string& text, const TextStyle& style, double centreX,
                    double y, bool aroundMiddle = false);
};

} // namespace apsis
