#pragma once

#include <functional>
#include <optional>
#include <unordered_map>

class QKeyEvent;

namespace apsis {

// The code the game receives for a key: the first UTF-16 unit of its text as typed with no
// modifier but Shift, or an arrow's code. Nothing for keys without text (Shift alone, F-keys) and
// for combinations with Ctrl, Alt or Meta, which belong to the window (Ctrl+Q must not arrive as
// "q").
std::optional<unsigned short> gameKeyCode(const QKeyEvent& event);

// Passes key presses and releases on to the game, once each. A held key reaches the game as one
// press and one release: the auto-repeats X11 sends in between are dropped, and the release
// carries the code the press had, whatever modifiers changed meanwhile. When the window loses
// the keyboard, every key still held is released, so the engine does not burn on.
class KeyRelay {
  public:
    using Sink = std::function<void(unsigned short)>;

    KeyRelay(Sink keyDown, Sink keyUp) : keyDown_(std::move(keyDown)), keyUp_(std::move(keyUp)) {}

    // Answers whether the event was the game's.
    bool press(const QKeyEvent& event);
    bool release(const QKeyEvent& event);
    void releaseAll();

    bool isHolding() const { return !held_.empty(); }

  private:
    Sink keyDown_;
    Sink keyUp_;
    std::unordered_map<int, unsigned short> held_; // physical key -> code sent at its press
};

} // namespace apsis
