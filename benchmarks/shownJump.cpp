#include "benchmarks/BenchmarkWindow.h"

#include <cstdio>

/// The whole program on the folders of its settings, with the oldest jump on screen. Says "shown" once nothing is
/// loading or moving any more, and stays, so that its memory can be measured from outside.
int main(int argc, char** argv)
{
    using namespace ospra;
    prepareApplication();
    QApplication application(argc, argv);
    OspraApp app;
    if (!app.openWindow())
        return 1;
    OspraModel& model = app.model();
    waitFor([&] { return model.hasJumpGroups() && !model.isLoading(); });
    model.openGroup(model.jumpGroups().back());
    waitFor([&] { return model.hasTracks() && !model.isLoading(); });
    waitForRest();
    std::printf("shown %zu jumps %zu tracks", model.jumpGroups().size(), model.tracks().size());
    for (const JumpTrack& track : model.tracks())
        std::printf(" %zu", track.file.dataPoints.size());
    std::printf("\n");
    std::fflush(stdout);
    return QApplication::exec();
}
