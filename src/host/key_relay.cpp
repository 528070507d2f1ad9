#include "host/key_relay.h"

#include "control/keys.h"

#include <QKeyEvent>

namespace apsis {
namespace {

// One identity per physical key: the scan code where the platform gives one, else Qt's key.
int physicalKey(const QKeyEvent& event) {
    const auto scanCode = event.nativeScanCode();
    return scanCode != 0 ? static_cast<int>(scanCode) : -event.key();
}

} // namespace

std::optional<unsigned short> gameKeyCode(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
        return kKeyUp;
    case Qt::Key_Down:
        return kKeyDown;
    case Qt::Key_Left:
        return kKeyLeft;
    case Qt::Key_Right:
        return kKeyRight;
    default:
        break;
    }
    const auto chords = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (event.modifiers() & chords)
        return std::nullopt;
    const QString text = event.text();
    if (text.isEmpty())
        return std::nullopt;
    return text.at(0).unicode();
}

bool KeyRelay::press(const QKeyEvent& event) {
    if (event.isAutoRepeat())
        return true;
    const auto code = gameKeyCode(event);
    if (!code)
        return false;
    const int key = physicalKey(event);
    if (const auto found = held_.find(key); found != held_.end()) {
        // A second press without a release in between (the release went to another window):
        // release the first before pressing again.
        keyUp_(found->second);
    }
    held_[key] = *code;
    keyDown_(*code);
    return true;
}

bool KeyRelay::release(const QKeyEvent& event) {
    if (event.isAutoRepeat())
        return true;
    const auto found = held_.find(physicalKey(event));
    if (found == held_.end())
        return false;
    const unsigned short code = found->second;
    held_.erase(found);
    keyUp_(code);
    return true;
}

void KeyRelay::releaseAll() {
    auto held = std::move(held_);
    held_.clear();
    for (const auto& [key, code] : held)
        keyUp_(code);
}

} // namespace apsis
