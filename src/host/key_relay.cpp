#include "host/key_relay.h"

#include "control/keys.h"

#include <string_view>

#include <QKeyEvent>

namespace apsis {
namespace {

// One identity per physical key: the scan code where the platform gives one, else Qt's key.
int physicalKey(const QKeyEvent& event) {
    const auto scanCode = event.nativeScanCode();
    return scanCode != 0 ? static_cast<int>(scanCode) : -event.key();
}

// The letter a key carries on a US keyboard, by the scan code X11 and Wayland give for a PC
// keyboard's letter rows (the kernel's key number plus 8); 0 for any other key.
char16_t usLetter(quint32 scanCode) {
    struct Row {
        quint32 first;
        const char* letters;
    };
    static constexpr Row rows[] = {{24, "qwertyuiop"}, {38, "asdfghjkl"}, {52, "zxcvbnm"}};
    for (const Row& row : rows) {
        const std::string_view letters(row.letters);
        if (scanCode >= row.first && scanCode < row.first + letters.size())
            return static_cast<char16_t>(letters[scanCode - row.first]);
    }
    return 0;
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
    case Qt::Key_F2:
        return kKeyF2;
    case Qt::Key_F3:
        return kKeyF3;
    case Qt::Key_F4:
        return kKeyF4;
    case Qt::Key_F5:
        return kKeyF5;
    case Qt::Key_F6:
        return kKeyF6;
    case Qt::Key_F7:
        return kKeyF7;
    case Qt::Key_F8:
        return kKeyF8;
    case Qt::Key_F9:
        return kKeyF9;
    case Qt::Key_F10:
        return kKeyF10;
    case Qt::Key_Home:
        return kKeyHome;
    case Qt::Key_End:
        return kKeyEnd;
    case Qt::Key_PageUp:
        return kKeyPageUp;
    case Qt::Key_PageDown:
        return kKeyPageDown;
    default:
        break;
    }
    const auto chords = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (event.modifiers() & chords)
        return std::nullopt;
    const QString text = event.text();
    if (text.isEmpty())
        return std::nullopt;
    QChar code = text.at(0);
    if (!code.isLetter())
        return code.unicode();
    if (code.script() != QChar::Script_Latin) {
        if (const char16_t letter = usLetter(event.nativeScanCode()))
            code = QChar(letter);
    }
    // Caps Lock is a modifier like any other: only Shift makes a capital.
    return (event.modifiers() & Qt::ShiftModifier ? code.toUpper() : code.toLower()).unicode();
}

KeyRelay::KeyRelay(Sink keyDown, Sink keyUp)
    : keyDown_(std::move(keyDown)), keyUp_(std::move(keyUp)) {
    // An automatic repeat's press follows its release at once; a player's own press of the same
    // key comes tens of milliseconds later at the earliest.
    releaseTimer_.setTimerType(Qt::PreciseTimer);
    releaseTimer_.setSingleShot(true);
    releaseTimer_.setInterval(20);
    QObject::connect(&releaseTimer_, &QTimer::timeout, [this] { flush(); });
}

bool KeyRelay::press(const QKeyEvent& event) {
    const int key = physicalKey(event);
    // Events made without a time (synthetic ones) carry 0, which tells nothing.
    const bool sameTime =
        event.timestamp() != 0 && pending_ && pending_->timestamp == event.timestamp();
    if (pending_ && pending_->key == key && (event.isAutoRepeat() || sameTime)) {
        // The release kept back and this press are one automatic repeat: the key is still held.
        pending_.reset();
        return true;
    }
    flush();
    if (event.isAutoRepeat())
        return true;
    const auto code = gameKeyCode(event);
    if (!code)
        return false;
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
    const int key = physicalKey(event);
    if (!held_.contains(key))
        return false;
    flush();
    pending_ = Release{key, event.timestamp()};
    releaseTimer_.start();
    return true;
}

void KeyRelay::flush() {
    if (!pending_)
        return;
    const auto found = held_.find(pending_->key);
    pending_.reset();
    if (found == held_.end())
        return;
    const unsigned short code = found->second;
    held_.erase(found);
    keyUp_(code);
}

void KeyRelay::releaseAll() {
    pending_.reset();
    auto held = std::move(held_);
    held_.clear();
    for (const auto& [key, code] : held)
        keyUp_(code);
}

} // namespace apsis
