#pragma once

#include "tools/make-sample-jumps/Options.h"
#include "tools/make-sample-jumps/OutputFolder.h"

namespace ospra {

/// Writes a season: the folder of the logbook and one for each companion.
void makeSeason(const Options& options, OutputFolder& output);

/// Writes plain version 1 logs, all of one length.
void makeBenchmarkLogs(const Options& options, OutputFolder& output);

} // namespace ospra
