#pragma once

namespace merov::output
{

/// How large the chart is drawn, and its steps. Values are kept on whole tenths, so that the steps always
/// end at their limits.
struct ChartSettings {
    double LopScale = 5.0;    ///< half length of a position line, in multiples of the largest intercept
    double ChartMargin = 0.1; ///< fraction of the extent added on each side; smaller is a larger drawing

    void DecreaseChart(); ///< margin + 0.1
    void IncreaseChart(); ///< margin - 0.1, down to -0.5
    void IncreaseLops();  ///< scale + 1
    void DecreaseLops();  ///< scale - 1, while above 1
    void StepLopsUp();    ///< scale + 1, below 1 + 0.1
    void StepLopsDown();  ///< scale - 1 while above 1, then - 0.1 down to 0.1
};

} // namespace merov::output
