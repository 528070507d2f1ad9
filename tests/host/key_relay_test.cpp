#include "host/key_relay.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <QKeyEvent>

namespace apsis {
namespace {

QKeyEvent key(QEvent::Type type, int qtKey, const QString& text,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool autoRepeat = false,
              quint32 scanCode = 0) {
    return QKeyEvent(type, qtKey, modifiers, scanCode, 0, 0, text, autoRepeat);
}

struct Recorder {
    std::vector<std::string> log;
    KeyRelay relay{[this](unsigned short k) { log.push_back("down " + std::to_string(k)); },
                   [this](unsigned short k) { log.push_back("up " + std::to_string(k)); }};
};

TEST(GameKeyCode, MapsWhatTheGameKnowsAndNothingElse) {
    struct Case {
        int qtKey;
        QString text;
        Qt::KeyboardModifiers modifiers;
        std::optional<unsigned short> expected;
    };
    const Case cases[] = {
        {Qt::Key_Up, "", Qt::NoModifier, 0xF700},
        {Qt::Key_Down, "", Qt::NoModifier, 0xF701},
        {Qt::Key_Left, "", Qt::KeypadModifier, 0xF702},
        {Qt::Key_Right, "", Qt::NoModifier, 0xF703},
        {Qt::Key_W, "w", Qt::NoModifier, 119},
        {Qt::Key_W, "W", Qt::ShiftModifier, 87}, // Shift gives upper case, which no command uses
        {Qt::Key_Tab, "\t", Qt::NoModifier, 9},
        {Qt::Key_Escape, "\x1b", Qt::NoModifier, 27},
        {Qt::Key_Space, " ", Qt::NoModifier, 32},
        {Qt::Key_Q, "\x11", Qt::ControlModifier, std::nullopt}, // Ctrl+Q is the window's
        {Qt::Key_S, "s", Qt::AltModifier, std::nullopt},
        {Qt::Key_Shift, "", Qt::ShiftModifier, std::nullopt}, // no text: nothing to pass
        {Qt::Key_F11, "", Qt::NoModifier, std::nullopt},
    };
    for (const Case& c : cases) {
        const QKeyEvent event = key(QEvent::KeyPress, c.qtKey, c.text, c.modifiers);
        EXPECT_EQ(gameKeyCode(event), c.expected) << "Qt key " << c.qtKey;
    }
}

TEST(KeyRelay, AHeldKeyIsOnePressAndOneReleaseWhateverX11Repeats) {
    Recorder r;
    r.relay.press(key(QEvent::KeyPress, Qt::Key_Up, "", Qt::NoModifier, false, 111));
    for (int i = 0; i < 20; ++i) {
        // X11 sends a held key as release/press pairs flagged as repeats.
        r.relay.release(key(QEvent::KeyRelease, Qt::Key_Up, "", Qt::NoModifier, true, 111));
        r.relay.press(key(QEvent::KeyPress, Qt::Key_Up, "", Qt::NoModifier, true, 111));
    }
    r.relay.release(key(QEvent::KeyRelease, Qt::Key_Up, "", Qt::NoModifier, false, 111));
    EXPECT_EQ(r.log, (std::vector<std::string>{"down 63232", "up 63232"}));
}

TEST(KeyRelay, AReleaseCarriesThePressCodeEvenAfterShiftOrCtrlCameDown) {
    Recorder r;
    r.relay.press(key(QEvent::KeyPress, Qt::Key_W, "w", Qt::NoModifier, false, 25));
    r.relay.release(key(QEvent::KeyRelease, Qt::Key_W, "W", Qt::ShiftModifier, false, 25));
    r.relay.press(key(QEvent::KeyPress, Qt::Key_X, "x", Qt::NoModifier, false, 53));
    r.relay.release(key(QEvent::KeyRelease, Qt::Key_X, "\x18", Qt::ControlModifier, false, 53));
    EXPECT_EQ(r.log, (std::vector<std::string>{"down 119", "up 119", "down 120", "up 120"}));
}

TEST(KeyRelay, LosingTheKeyboardReleasesEveryHeldKeyOnce) {
    Recorder r;
    r.relay.press(key(QEvent::KeyPress, Qt::Key_Up, "", Qt::NoModifier, false, 111));
    r.relay.press(key(QEvent::KeyPress, Qt::Key_Left, "", Qt::NoModifier, false, 113));
    r.relay.releaseAll();
    r.relay.releaseAll();
    // The real releases arrive later, in another window's time: nothing more reaches the game.
    r.relay.release(key(QEvent::KeyRelease, Qt::Key_Up, "", Qt::NoModifier, false, 111));
    ASSERT_EQ(r.log.size(), 4u);
    EXPECT_EQ(r.log[0], "down 63232");
    EXPECT_EQ(r.log[1], "down 63234");
    EXPECT_TRUE((r.log[2] == "up 63232" && r.log[3] == "up 63234") ||
                (r.log[2] == "up 63234" && r.log[3] == "up 63232"));
    EXPECT_FALSE(r.relay.isHolding());
}

TEST(KeyRelay, KeysTheGameDoesNotTakeAreLeftToTheWindow) {
    Recorder r;
    EXPECT_FALSE(r.relay.press(key(QEvent::KeyPress, Qt::Key_Q, "\x11", Qt::ControlModifier)));
    EXPECT_FALSE(r.relay.press(key(QEvent::KeyPress, Qt::Key_F11, "")));
    EXPECT_FALSE(r.relay.release(key(QEvent::KeyRelease, Qt::Key_F11, "")));
    EXPECT_TRUE(r.log.empty());
}

} // namespace
} // namespace apsis
