#include <gtest/gtest.h>

#include <QApplication>

// The Qt tests need an application object for fonts and painting; the platform is offscreen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
