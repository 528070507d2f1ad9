#include "host/main_window.h"

#include "host/game_view.h"

#include <QAction>
#include <QApplication>
#include <QGuiApplication>
#include <QScreen>

namespace apsis {

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), view_(new GameView(this)) {
    setWindowTitle("Apsis");
    setCentralWidget(view_);
    view_->setFocus();

    // A comfortable default that still fits a small screen.
    QSize size(1280, 800);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        size = size.boundedTo(screen->availableSize() * 9 / 10);
    resize(size.expandedTo(view_->minimumSize()));

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

void MainWindow::toggleFullScreen() {
    if (isFullScreen())
        showNormal();
    else
        showFullScreen();
}

} // namespace apsis
