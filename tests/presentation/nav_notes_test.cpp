#include "presentation/assists.h"
#include "presentation/format.h"
#include "support/aids_frame.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace apsis {
namespace {

// The notes say in words what a number would get wrong, and what they cannot know yet.
TEST(NavAidsDrawing, NotesInPlainWords) {
    struct Case {
        std::function<void(NavAids&)> set;
        std::string line;
        std::string absent;
    };
    const Case cases[] = {
        {[](NavAids& a) { a.low.value = -113479.7; }, "Low: below the surface of Earth", "Low"},
        {[](NavAids& a) {
             a.low.value = -5;
             a.orbitBody = "The Moon";
         },
         "Low (The Moon): below the surface of the Moon", "Low"},
        {[](NavAids& a) { a.low.value = 250; }, "Low: " + formatDist(250) + " in " + formatTime(90),
         ""},
        {[](NavAids& a) {
             a.approach = {{true, {}, 0, 0, "Mars"}, {}, 0, true};
         },
         "Closest to Mars: beyond the path", "Closest"},
        {[](NavAids& a) {
             a.approach = {{true, {}, 1234, 600, "Satellite"}, {}, 7.5, false};
         },
         "Closest to Satellite: " + formatDist(1234) + " in " + formatTime(600) + " at 7.50m/s",
         ""},
        {[](NavAids& a) { // a path into the goal
             a.approach = {{true, {}, -11415.8, 86400, "Mars"}, {}, 2260, false};
         },
         "Closest to Mars: contact in " + formatTime(86400) + " at 2.26km/s", ""},
        {[](NavAids& a) { a.phase = {true, {}, {}, {}, 2.0944, "The Moon", "You", "Earth"}; },
         "The Moon ahead of you round Earth: 120\u00b0", ""},
        {[](NavAids& a) { a.phase = {true, {}, {}, {}, 0.7854, "Mars", "Earth", "The Sun"}; },
         "Mars ahead of Earth round the Sun: 45\u00b0", ""},
        {[](NavAids& a) { // climbing away from a low point passed
             a.isEscaping = true;
             a.low.isShown = false;
         },
         "High: escape", "Low"},
        {[](NavAids& a) { a.pathTime = 2 * 86400; },
         "Path cut short: it ends in " + formatTime(2 * 86400), ""},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.line);
        AidsFrame f;
        f.aids.craft = f.at(300, 300);
        f.aids.hasOrbit = true;
        f.aids.low = {true, f.at(700, 300), 0, 90, ""};
        f.aids.high = {true, f.at(100, 300), 1e6, 900, ""};
        test.set(f.aids);
        f.aids.isCutShort = f.aids.pathTime > 0;
        if (f.aids.isCutShort)
            f.aids.path = {f.at(300, 300), f.at(400, 320)};
        f.draw();
        EXPECT_TRUE(f.hasAidText(test.line));
        if (!test.absent.empty()) {
            EXPECT_FALSE(f.hasAidText(test.absent)) << "a mark for what is not there";
        }
        for (const RC::Call* c : f.calls(true))
            EXPECT_EQ(c->text.find('-'), std::string::npos) << c->text;
        // A low point not ahead is not named, with no time or with an old one.
        EXPECT_EQ(f.hasAidText("Low", true), f.aids.low.isShown);
    }
}

// The plan's read-outs in plain words too: a planned low point under the ground is the impact it
// is, and the planned path's closest approach to the target is given with its time and speed.
TEST(NavAidsDrawing, PlanReadOutsInPlainWords) {
    AidsFrame f;
    AssistAids plan;
    plan.hasPlan = true;
    plan.hasOrbit = true;
    plan.orbitBody = "The Moon";
    plan.high = {true, f.at(100, 300), 1027e3, 600, ""};
    plan.low = {true, f.at(700, 300), -571803.4, 900, ""};
    plan.approach = {{true, f.at(500, 500), 1234, 3600, "Station"}, {}, 12.5, false};
    plan.along = -199.82;
    drawAssists(f.h.view, plan, nullptr);
    EXPECT_TRUE(f.hasAidText("Planned High: " + formatDist(1027e3) +
                             " Low: below the surface of the Moon"));
    EXPECT_TRUE(f.hasAidText("Planned Closest to Station: " + formatDist(1234) + " in " +
                             formatTime(3600) + " at 12.50m/s"));
    EXPECT_TRUE(f.hasAidText("Against the Motion: 199.82m/s"));

    // A plan that runs into its target touches it: no gap below zero, and which way it pushes.
    AidsFrame g;
    plan.approach.value = -11415.8;
    plan.along = 30;
    plan.across = -4;
    drawAssists(g.h.view, plan, nullptr);
    EXPECT_TRUE(g.hasAidText("Planned Closest to Station: contact in " + formatTime(3600) +
                             " at 12.50m/s"));
    EXPECT_TRUE(g.hasAidText("Along the Motion: 30.00m/s, Radial In: 4.00m/s"));
}

} // namespace
} // namespace apsis
