#pragma once

#include "host/damage_canvas.h"
#include "host/frame_clock.h"
#include "host/key_relay.h"

#include <memory>
#include <optional>
#include <vector>

#include <QElapsedTimer>
#include <QRegion>
#include <QTimer>
#include <QTransform>
#include <QWidget>

namespace apsis {

struct Controller;

// The game's drawing area, filling the main window: it owns the one Controller, ticks it 30 times
// a second, passes the keyboard on and draws whatever the Controller draws.
class GameView : public QWidget {
    Q_OBJECT

  public:
    explicit GameView(QWidget* parent = nullptr);
    ~GameView() override;

    Controller& controller() { return *ctrl_; }

  public slots:
    // One frame tick: the Controller steps, and the view is marked for redrawing if it asks.
    void doFrame();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    // Tab belongs to the game, not to Qt's focus chain.
    bool focusNextPrevChild(bool next) override;

  private:
    // Asks for the present frame: the whole view after anything else changed what is on screen,
    // else only where the last frame or this one draws.
    void requestRedraw();

    std::unique_ptr<Controller> ctrl_;
    KeyRelay keys_;
    QElapsedTimer clock_;
    FrameClock frameClock_;
    QTimer timer_;
    std::vector<DamageCanvas::Mark> lastFrame_; // what the frame now on screen draws
    bool wholeView_ = true;                     // the next redraw must cover the whole view
    unsigned decodesSeen_ = 0;                  // pictures decoded when the view was last drawn
    std::optional<QTransform> painted_;         // the device transform of the last paint
};

} // namespace apsis
