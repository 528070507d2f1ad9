#pragma once

namespace apsis {

// The key codes the controller reads: the first UTF-16 unit of the key's text, as typed without
// modifiers but Shift, and the arrows as the private-use codes 0xF700 to 0xF703 (up, down, left,
// right), which the host translates its arrow keys into. An upper-case letter is a different code
// and matches no command.
inline constexpr unsigned short kKeyTab = 9;
inline constexpr unsigned short kKeyEscape = 27;
inline constexpr unsigned short kKeySpace = 32;
inline constexpr unsigned short kKeyA = 'a'; // slower time
inline constexpr unsigned short kKeyQ = 'q'; // zoom out
inline constexpr unsigned short kKeyS = 's'; // faster time
inline constexpr unsigned short kKeyW = 'w'; // zoom in
inline constexpr unsigned short kKeyX = 'x'; // throttle up
inline constexpr unsigned short kKeyZ = 'z'; // throttle down
inline constexpr unsigned short kKeyUp = 0xF700;
inline constexpr unsigned short kKeyDown = 0xF701;
inline constexpr unsigned short kKeyLeft = 0xF702;
inline constexpr unsigned short kKeyRight = 0xF703;

// Keys the game adds to those above. A function key has no text: it takes a private-use code after
// the arrows', its number counted from 0xF704 for F1, which no typed key can give.
inline constexpr unsigned short kKeyF2 = 0xF705; // navigation aids on and off, in flight

} // namespace apsis
