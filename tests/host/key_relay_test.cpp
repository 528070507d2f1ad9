#include "control/controller.h"
#include "control/keys.h"
#include "control/seeded_flight.h"
#include "host/key_relay.h"

#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

#include <QKeyEvent>

namespace apsis {
namespace {

struct Key : QKeyEvent {
    Key(QEvent::Type type, int qtKey, const QString& text,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool autoRepeat = false,
        quint32 scanCode = 0, unsigned long long timestamp = 0)
        : QKeyEvent(type, qtKey, modifiers, scanCode, 0, 0, text, autoRepeat) {
        setTimestamp(timestamp);
    }
};

struct Recorder {
    std::vector<std::string> log;
    KeyRelay relay{[this](unsigned short k) { log.push_back("down " + std::to_string(k)); },
                   [this](unsigned short k) { log.push_back("up " + std::to_string(k)); }};
};

TEST(GameKeyCode, MapsWhatTheGameKnowsAndNothingElse) {
    const struct {
        int qtKey;
        QString text;
        Qt::KeyboardModifiers modifiers;
        quint32 scanCode;
        std::optional<unsigned short> expected;
    } cases[] = {
        {Qt::Key_Up, "", Qt::NoModifier, 111, 0xF700},
        {Qt::Key_Down, "", Qt::NoModifier, 116, 0xF701},
        {Qt::Key_Left, "", Qt::KeypadModifier, 83, 0xF702},
        {Qt::Key_Right, "", Qt::NoModifier, 114, 0xF703},
        {Qt::Key_F2, "", Qt::NoModifier, 68, 0xF705},
        {Qt::Key_F3, "", Qt::NoModifier, 69, kKeyF3}, // the assists
        {Qt::Key_F10, "", Qt::NoModifier, 76, kKeyF10},
        {Qt::Key_Home, "", Qt::NoModifier, 110, kKeyHome},
        {Qt::Key_PageDown, "", Qt::KeypadModifier, 89, kKeyPageDown},
        {Qt::Key_W, "w", Qt::NoModifier, 25, 119},
        {Qt::Key_W, "W", Qt::NoModifier, 25, 119},   // Caps Lock on: still the command
        {Qt::Key_W, "w", Qt::ShiftModifier, 25, 87}, // Caps Lock and Shift: Shift gives upper case
        {0x426, QString(QChar(0x446)), Qt::NoModifier, 25, 119},   // Cyrillic: the key of w
        {0x42f, QString(QChar(0x42f)), Qt::NoModifier, 52, 122},   // ... z, with Caps Lock
        {0x41e, QString(QChar(0x43e)), Qt::NoModifier, 47, 0x43e}, // no US letter there: as typed
        {Qt::Key_A, "a", Qt::NoModifier, 24, 97}, // AZERTY: a Latin letter is kept as typed
        {Qt::Key_Space, " ", Qt::NoModifier, 65, 32},
        {Qt::Key_Q, "\x11", Qt::ControlModifier, 24, std::nullopt}, // Ctrl+Q is the window's
        {Qt::Key_S, "s", Qt::AltModifier, 39, std::nullopt},
        {Qt::Key_Shift, "", Qt::ShiftModifier, 50, std::nullopt}, // no text: nothing to pass
    };
    for (const auto& c : cases) {
        const Key event(QEvent::KeyPress, c.qtKey, c.text, c.modifiers, false, c.scanCode);
        EXPECT_EQ(gameKeyCode(event), c.expected) << "Qt key " << c.qtKey << " " << c.scanCode;
    }
}

TEST(KeyRelay, AHeldKeyIsOnePressAndOneReleaseWhateverX11Repeats) {
    // The engine, and F2, which toggles on each press.
    for (const auto& [qtKey, scanCode, code] :
         {std::tuple{Qt::Key_Up, 111u, 0xF700}, std::tuple{Qt::Key_F2, 68u, 0xF705}}) {
        const std::string down = "down " + std::to_string(code), up = "up " + std::to_string(code);
        Recorder r;
        const auto event = [&](QEvent::Type type, bool flagged, unsigned long long time) {
            return Key(type, qtKey, "", Qt::NoModifier, flagged, scanCode, time);
        };
        r.relay.press(event(QEvent::KeyPress, false, 1000));
        for (unsigned long long i = 1; i <= 20; ++i) {
            // X11 sends a held key as release/press pairs with one timestamp; Qt flags most of
            // them as repeats, but not all.
            const bool flagged = i % 4 != 0;
            r.relay.release(event(QEvent::KeyRelease, flagged, 1000 + 33 * i));
            r.relay.press(event(QEvent::KeyPress, flagged, 1000 + 33 * i));
        }
        r.relay.release(event(QEvent::KeyRelease, false, 1700));
        EXPECT_EQ(r.log, (std::vector<std::string>{down}));
        r.relay.flush();
        // A player's own quick second tap has a timestamp of its own: two presses.
        r.relay.press(event(QEvent::KeyPress, false, 1750));
        r.relay.release(event(QEvent::KeyRelease, false, 1800));
        r.relay.press(event(QEvent::KeyPress, false, 1801));
        EXPECT_EQ(r.log, (std::vector<std::string>{down, up, down, up, down}));
    }
}

TEST(KeyRelay, AReleaseCarriesThePressCodeEvenAfterShiftOrCtrlCameDown) {
    Recorder r;
    r.relay.press(Key(QEvent::KeyPress, Qt::Key_W, "w", Qt::NoModifier, false, 25));
    r.relay.release(Key(QEvent::KeyRelease, Qt::Key_W, "W", Qt::ShiftModifier, false, 25));
    r.relay.press(Key(QEvent::KeyPress, Qt::Key_X, "x", Qt::NoModifier, false, 53));
    r.relay.release(Key(QEvent::KeyRelease, Qt::Key_X, "\x18", Qt::ControlModifier, false, 53));
    r.relay.flush();
    EXPECT_EQ(r.log, (std::vector<std::string>{"down 119", "up 119", "down 120", "up 120"}));
}

// Keys the game does not take are left to the window. Losing the keyboard releases every held key
// once; the real releases arrive later, in another window's time, and reach the game no more.
TEST(KeyRelay, OnlyGameKeysAreTakenAndLosingTheKeyboardReleasesEachOnce) {
    Recorder r;
    EXPECT_FALSE(r.relay.press(Key(QEvent::KeyPress, Qt::Key_Q, "\x11", Qt::ControlModifier)));
    EXPECT_FALSE(r.relay.press(Key(QEvent::KeyPress, Qt::Key_F11, "")));
    EXPECT_FALSE(r.relay.release(Key(QEvent::KeyRelease, Qt::Key_F11, "")));
    r.relay.press(Key(QEvent::KeyPress, Qt::Key_Up, "", Qt::NoModifier, false, 111));
    r.relay.press(Key(QEvent::KeyPress, Qt::Key_Left, "", Qt::NoModifier, false, 113));
    r.relay.releaseAll();
    r.relay.releaseAll();
    r.relay.release(Key(QEvent::KeyRelease, Qt::Key_Up, "", Qt::NoModifier, false, 111));
    ASSERT_EQ(r.log.size(), 4u);
    EXPECT_EQ(r.log[0] + r.log[1], "down 63232down 63234");
    EXPECT_TRUE((r.log[2] == "up 63232" && r.log[3] == "up 63234") ||
                (r.log[2] == "up 63234" && r.log[3] == "up 63232"));
}

// The assists' keys take the one key path: from Qt's events through the relay to the controller,
// which acts on them in flight.
TEST(KeyRelay, TheAssistsKeysReachTheController) {
    Controller c;
    KeyRelay relay([&c](unsigned short k) { c.keyDown(k); },
                   [&c](unsigned short k) { c.keyUp(k); });
    const auto tap = [&relay](int qtKey, quint32 scanCode) {
        relay.press(Key(QEvent::KeyPress, qtKey, "", Qt::NoModifier, false, scanCode));
        relay.release(Key(QEvent::KeyRelease, qtKey, "", Qt::NoModifier, false, scanCode));
        relay.flush();
    };
    flySeeded(c, 2, 1);
    tap(Qt::Key_F3, 69);
    EXPECT_EQ(c.game.hold.kind, HoldKind::Prograde);
    tap(Qt::Key_F7, 73);
    ASSERT_TRUE(c.plan.isSet);
    tap(Qt::Key_PageUp, 112);
    EXPECT_GT(c.plan.along, 0);
    tap(Qt::Key_F6, 75);
    EXPECT_EQ(c.game.hold.kind, HoldKind::AlongPlan);
    tap(Qt::Key_F8, 74);
    EXPECT_FALSE(c.plan.isSet);
}

} // namespace
} // namespace apsis
