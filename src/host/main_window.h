#pragma once

#include <QMainWindow>

namespace apsis {

class GameView;

// The view's sizes on a screen whose free area (without panels, in the window's own points) is
// the given one: a comfortable default, and a minimum that keeps the game readable. Neither
// exceeds nine tenths of the free area, which leaves room for the window's frame: on a small
// screen, or one scaled up a great deal, the window still fits.
QSize defaultViewSize(QSize available);
QSize minimumViewSize(QSize available);

// The game's one window: the game view fills it; F11 toggles full screen and Ctrl+Q quits.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit MainWindow(QWidget* parent = nullptr);
    GameView& view() { return *view_; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void toggleFullScreen();
    // Sets the view's minimum for the screen the window is on, and follows that screen.
    void fitToScreen();

    GameView* view_;                     // owned by the window, as its central widget
    QMetaObject::Connection screenArea_; // the free area of the screen followed, to fit again
};

} // namespace apsis
