#include "host/game_view.h"

#include "control/controller.h"
#include "host/damage_canvas.h"
#include "platform/qt_canvas.h"
#include "platform/qt_picture.h"
#include "presentation/canvas.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

namespace apsis {

GameView::GameView(QWidget* parent)
    : QWidget(parent), ctrl_(std::make_unique<Controller>()),
      // A key may change the picture between a tick and its redraw: the next redraw then
      // covers the whole view.
      keys_(
          [this](unsigned short key) {
              ctrl_->keyDown(key);
              wholeView_ = true;
          },
          [this](unsigned short key) {
              ctrl_->keyUp(key);
              wholeView_ = true;
          }),
      // The schedule counts from the moment clock_ starts, below.
      frameClock_(0) {
    setFocusPolicy(Qt::StrongFocus);
    // Every paint covers the whole view with black first, so Qt need not clear it.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    // The window's game looks ahead on a thread of its own, so that its tick never waits.
    ctrl_->navPrediction.useWorkerThread(true);
    ctrl_->plannedPath.useWorkerThread(true);

    clock_.start();
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &GameView::doFrame);
    timer_.start(frameClock_.firstWait());
}

GameView::~GameView() = default;

void GameView::doFrame() {
    ctrl_->doFrame();
    // A picture decoded more finely since the last redraw: the whole view is drawn again from it.
    if (const unsigned decodes = QtPicture::decodesDone(); decodes != decodesSeen_) {
        decodesSeen_ = decodes;
        wholeView_ = true;
        ctrl_->needsRedraw = true;
    }
    if (ctrl_->needsRedraw) {
        requestRedraw();
        ctrl_->needsRedraw = false;
    }
    timer_.start(frameClock_.tick(clock_.nsecsElapsed()));
}

void GameView::requestRedraw() {
    // A pass over a canvas that only takes note of what the frame draws.
    DamageCanvas notes(this, Size{static_cast<float>(width()), static_cast<float>(height())});
    if (painted_)
        notes.setDeviceTransform(*painted_);
    {
        CanvasFocus focus(notes);
        ctrl_->drawRect();
    }
    if (wholeView_)
        update();
    else
        update(notes.changedSince(lastFrame_));
    lastFrame_ = notes.marks();
    wholeView_ = false;
}

void GameView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painted_ = painter.deviceTransform();
    painter.fillRect(rect(), Qt::black);
    QtCanvas canvas(painter, Size{static_cast<float>(width()), static_cast<float>(height())});
    // Qt paints only the region asked for; what lies wholly outside it need not be drawn.
    canvas.setDirtyRegion(event->region());
    CanvasFocus focus(canvas);
    ctrl_->drawRect();
}

void GameView::keyPressEvent(QKeyEvent* event) {
    if (!keys_.press(*event))
        QWidget::keyPressEvent(event);
}

void GameView::keyReleaseEvent(QKeyEvent* event) {
    if (!keys_.release(*event))
        QWidget::keyReleaseEvent(event);
}

void GameView::resizeEvent(QResizeEvent* event) {
    wholeView_ = true;
    QWidget::resizeEvent(event);
}

void GameView::focusOutEvent(QFocusEvent* event) {
    keys_.releaseAll();
    QWidget::focusOutEvent(event);
}

void GameView::changeEvent(QEvent* event) {
    // A window deactivated without a focus change (another application took the keyboard) must
    // not leave keys held either.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        keys_.releaseAll();
    QWidget::changeEvent(event);
}

bool GameView::focusNextPrevChild(bool) {
    return false;
}

} // namespace apsis
