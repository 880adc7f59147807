// SPDX-License-Identifier: GPL-3.0-or-later
// The window benchmarks run on Qt's offscreen platform, so they need no display; each
// manager's cases are in a file of their own beside this one.

#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
