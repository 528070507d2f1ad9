#include "platform/qt_picture.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

// Google Benchmark's main with a Qt application around it: the frame benchmarks make fonts and
// paint, and Qt allows neither before an application exists. No display is needed.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    apsis::QtPicture::waitForDecodes();
    return 0;
}
