#pragma once

#include <functional>
#include <optional>
#include <unordered_map>

#include <QTimer>

class QKeyEvent;

namespace apsis {

// The code the game receives for a key: the first UTF-16 unit of its text as typed with no
// modifier but Shift, or an arrow's code. A letter is lower case unless Shift is held, whatever
// Caps Lock says; a letter of a non-Latin layout becomes the letter its key carries on a US
// keyboard, so that the letter commands need no change of layout. Nothing for keys without text
// (Shift alone, the other F-keys) and for combinations with Ctrl, Alt or Meta, which belong to the
// window (Ctrl+Q must not arrive as "q").
std::optional<unsigned short> gameKeyCode(const QKeyEvent& event);

// Passes key presses and releases on to the game, once each. A held key reaches the game as one
// press and one release, and the release carries the code the press had, whatever modifiers
// changed meanwhile. X11 sends a held key's automatic repeats as release/press pairs with one
// timestamp, and Qt flags most of them but not all: so a release is kept back until the next key
// event or for 20 ms, and a press of the same key with the release's timestamp cancels it. When the
// window loses the keyboard, every key still held is released, so the engine does not burn on.
class KeyRelay {
  public:
    using Sink = std::function<void(unsigned short)>;

    // The sinks are called from the Qt thread's event loop, also by the relay's own timer.
    KeyRelay(Sink keyDown, Sink keyUp);
    KeyRelay(const KeyRelay&) = delete;
    KeyRelay& operator=(const KeyRelay&) = delete;

    // Answers whether the event was the game's.
    bool press(const QKeyEvent& event);
    bool release(const QKeyEvent& event);
    // Passes on the release kept back, if any. The relay's timer calls it 20 ms after a release,
    // when a repeat's press would have come.
    void flush();
    void releaseAll();

  private:
    struct Release {
        int key;
        unsigned long long timestamp;
    };

    Sink keyDown_;
    Sink keyUp_;
    std::unordered_map<int, unsigned short> held_; // physical key -> code sent at its press
    std::optional<Release> pending_;               // a release not yet passed on
    QTimer releaseTimer_; // passes on a release that no automatic repeat took back
};

} // namespace apsis
