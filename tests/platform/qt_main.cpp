#include "platform/qt_picture.h"

#include <gtest/gtest.h>

#include <QApplication>

// The Qt tests need an application object for fonts and painting; the platform is offscreen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    apsis::QtPicture::waitForDecodes();
    return status;
}
