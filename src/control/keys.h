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

// The pilot's assists, in flight only. The attitude holds: each key chooses a hold, and pressed
// again the next of its kind.
inline constexpr unsigned short kKeyF3 = 0xF706; // prograde, then retrograde
inline constexpr unsigned short kKeyF4 = 0xF707; // radial out, then radial in
inline constexpr unsigned short kKeyF5 = 0xF708; // towards the target, away, against its motion
inline constexpr unsigned short kKeyF6 = 0xF709; // along the planned burn
// The planned burn: set at the next high or low point, dropped, moved and sized. The editing keys
// take the codes their keys have in the same private-use range.
inline constexpr unsigned short kKeyF7 = 0xF70A;   // a plan at the next low point, then high point
inline constexpr unsigned short kKeyF8 = 0xF70B;   // drop the plan
inline constexpr unsigned short kKeyHome = 0xF729; // earlier
inline constexpr unsigned short kKeyEnd = 0xF72B;  // later
inline constexpr unsigned short kKeyPageUp = 0xF72C;   // more velocity change along the motion
inline constexpr unsigned short kKeyPageDown = 0xF72D; // less (below zero: against the motion)
inline constexpr unsigned short kKeyF9 = 0xF70C;       // more radial out
inline constexpr unsigned short kKeyF10 = 0xF70D;      // more radial in

} // namespace apsis
