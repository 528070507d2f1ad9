#pragma once

#include <QMainWindow>

namespace apsis {

class GameView;

// The game's one window: the game view fills it; F11 toggles full screen and Ctrl+Q quits.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit MainWindow(QWidget* parent = nullptr);
    GameView& view() { return *view_; }

  private:
    void toggleFullScreen();

    GameView* view_; // owned by the window, as its central widget
};

} // namespace apsis
