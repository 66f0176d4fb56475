#pragma once

#include <span>
#include <vector>

namespace ospra {

/// A letter above a plot, before it has found its place.
struct MarkerLetter {
    double rule = 0.0;  ///< position of its rule, from the plot's left end
    double width = 0.0; ///< of the text

    friend bool operator==(const MarkerLetter&, const MarkerLetter&) = default;
};

/// Finds places in one row for the letters of a plot's markers. A letter's leading edge stands on its rule. Where it
/// would come nearer to the letter before it than `gap`, it moves right by just enough. Where it would leave the plot,
/// it stands left of its rule, and those before it give way to the left.
/// @return the left edges, in the order of `letters`, which need not be sorted. A row too narrow for all begins at 0
/// and
///     runs out of the plot.
[[nodiscard]] std::vector<double> placeMarkerLetters(std::span<const MarkerLetter> letters, double plotWidth,
                                                     double gap);

} // namespace ospra
