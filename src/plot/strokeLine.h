#pragma once

#include "plot/PlotContent.h"
#include "plot/PlotRasteriser.h"
#include "raster/CoverageMask.h"

namespace ospra {

/// Draws one line into the mask, in the pixels of `frame`. Samples that share a pixel column are drawn as one stroke
/// from the column's first sample to the next column's, and as upright strokes to those that lie beyond it. Where
/// samples are sparser it is the plain polyline. Linear in the samples.
void strokeLine(CoverageMask& mask, const PlotLine& line, const PlotFrame& frame);

} // namespace ospra
