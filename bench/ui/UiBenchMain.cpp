#include <QApplication>

#include <benchmark/benchmark.h>
#include <opencv2/core.hpp>

#include "UiBenches.h"

/// Runs offscreen and on one core unless the caller chose otherwise.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    cv::setNumThreads(1);
    benchmark::Initialize(&argc, argv);
    vellora::registerSliderSteps();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
