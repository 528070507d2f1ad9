#include "host/main_window.h"

#include "host/game_view.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QWindow>

namespace apsis {

QSize defaultViewSize(QSize available) {
    return QSize(1280, 800).boundedTo(available * 9 / 10);
}

QSize minimumViewSize(QSize available) {
    return QSize(640, 480).boundedTo(available * 9 / 10);
}

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), view_(new GameView(this)) {
    setWindowTitle("Apsis");
    setCentralWidget(view_);
    view_->setFocus();

    fitToScreen();
    resize(screen() != nullptr ? defaultViewSize(screen()->availableSize()) : QSize(1280, 800));

    auto* fullScreen = new QAction(this);
    fullScreen->setShortcut(Qt::Key_F11);
    fullScreen->setShortcutContext(Qt::ApplicationShortcut);
    // A held F11 switches once, not at every automatic repeat.
    fullScreen->setAutoRepeat(false);
    connect(fullScreen, &QAction::triggered, this, &MainWindow::toggleFullScreen);
    addAction(fullScreen);

    auto* quit = new QAction(this);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setShortcutContext(Qt::ApplicationShortcut);
    connect(quit, &QAction::triggered, qApp, &QApplication::quit);
    addAction(quit);
}

void MainWindow::fitToScreen() {
    QScreen* const current = screen();
    if (current == nullptr)
        return;
    view_->setMinimumSize(minimumViewSize(current->availableSize()));
    disconnect(screenArea_);
    screenArea_ =
        connect(current, &QScreen::availableGeometryChanged, this, &MainWindow::fitToScreen);
}

void MainWindow::showEvent(QShowEvent* event) {
    // The window's screen is known for sure once it is shown, and it may move to another one.
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::fitToScreen,
            Qt::UniqueConnection);
    fitToScreen();
    QMainWindow::showEvent(event);
}

void MainWindow::toggleFullScreen() {
    if (isFullScreen())
        showNormal();
    else
        showFullScreen();
}

} // namespace apsis
