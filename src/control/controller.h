#pragma once

#include "control/burn_plan.h"
#include "control/nav_prediction.h"
#include "presentation/assists.h"
#include "presentation/draw_view.h"
#include "world/game.h"

namespace apsis {

// The screens of the game. Values are fixed: 0 to 10.
enum MODE {
    MODE_INTRO,          // splash while the pictures load; 10 ticks
    MODE_MENU,           // main menu
    MODE_ABOUT,          // about picture
    MODE_INSTRUCTIONS,   // instructions picture
    MODE_LEVEL,          // briefing over the still scene
    MODE_CHOICE,         // difficulty and level
    MODE_PLAY,           // flight
    MODE_RESTART_FADE,   // fade to white, then the same level; 8 ticks
    MODE_COLLISION_FADE, // fade to white, then the collision message; 8 ticks
    MODE_COLLISION,      // collision message; 60 ticks
    MODE_LEVEL_COMPLETE, // level complete; 200 ticks
};

// The centre of the game: owns the world and the camera, knows the screen, and advances both once
// per tick of 1/30 s. The craft's mainInfluence points into drawView, so a Controller stays where
// it was built.
struct Controller {
    bool needsRedraw = true; // read and cleared by the host after each tick
    Game game;
    DrawView drawView;
    MODE mode = MODE_INTRO;
    int counter = 10;                    // ticks left in a timed mode
    int level = 1;                       // level played or offered (world/levels.h); 0 is practice
    double countDownTime = 0.0;          // s of simulated time still to hold the objective orbit
    bool isCountingDown = false;         // the objective orbit is being held
    bool isPartialObjectiveDone = false; // level 8: the asteroid has been passed
    int menuChoice = 1;                  // highlighted menu entry, 1 to 4
    bool isZoomingIn = false;            // w held
    bool isZoomingOut = false;           // q held
    bool isSpeedingUp = false;           // s held
    bool isSlowingDown = false;          // a held
    bool isThrottlingUp = false;         // x held
    bool isThrottlingDown = false;       // z held
    double desiredThrottle = 1.0;        // the throttle asked for; may stray past the craft's range
    bool isShowingNavAids = false;       // F2: the path ahead and the goal drawn over the flight
    NavPrediction navPrediction;         // the path ahead, kept while the aids show
    NavAids navAids;                     // what the aids draw, worked out once a tick
    // The pilot's assists: the attitude hold lives in the world (game.hold), the plan here.
    BurnPlan plan;
    PlannedPath plannedPath;        // the path after the planned burn
    AssistAids assistAids;          // what the assists draw, worked out once a tick
    unsigned short heldPlanKey = 0; // a key moving or sizing the plan, held down
    int planKeyTicks = 0;           // ticks it has been held: its steps grow
    double ownTimeStep = 0;         // the player's time step while a plan cuts it; 0 when not
    bool isPlanAsked = false;       // the plan changed: its path is to be found again

    Controller();
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    void setMode(MODE m);
    // Sets up level n and shows its briefing; past the last level, back to the menu.
    void startLevel(int n);
    // One tick.
    void doFrame();
    // The tick's flight steps: zoom, time and throttle keys held down, then the body the camera
    // follows.
    void applyHeldKeys();
    void followNearestBody();
    void keyDown(unsigned short key);
    void keyUp(unsigned short key);
    // Draws what the present mode shows on the current canvas.
    void drawRect();
    // Judges the attempt after a world step: crashes, dockings, held orbits.
    void checkObjectives();
    // The navigation aids: turned on and off in flight only; they only add to the picture.
    void toggleNavAids();
    void updateNavAids();
    void drawNavAidsOver();
    // The assists: keys (true when the key was theirs), the tick's steps before and after the
    // world step, and the drop of the plan.
    bool assistKeyDown(unsigned short key);
    void assistKeyUp(unsigned short key);
    void beforeWorldStep();
    void afterWorldStep();
    void dropPlan();
    void findPlanAids();
};

} // namespace apsis
