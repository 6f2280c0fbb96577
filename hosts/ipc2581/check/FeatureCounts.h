#ifndef IPC2581_HOSTS_IPC2581_CHECK_FEATURECOUNTS_H
#define IPC2581_HOSTS_IPC2581_CHECK_FEATURECOUNTS_H

#include <cstddef>
#include <string>

#include "hosts/ipc2581/board/Board.h"

namespace ipc2581::host {

// The same things, counted in the file or in the model.
struct FeatureCounts {
    std::size_t layers = 0;
    std::size_t stackupLayers = 0;
    std::size_t packages = 0;
    std::size_t pins = 0;
    std::size_t sets = 0;
    std::size_t pads = 0;
    std::size_t holes = 0;
    std::size_t tracks = 0;
    // Never in the model.
    std::size_t heights = 0;
    std::size_t firstPins = 0;
    // Words that the reader takes otherwise.
    std::size_t plated = 0;
    std::size_t testPoints = 0;
};

FeatureCounts CountFeaturesInFile(const std::string & path);
FeatureCounts CountFeaturesInModel(Board & board);

}  // namespace ipc2581::host

#endif
