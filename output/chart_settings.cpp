#include "output/chart_settings.h"

#include <cmath>

namespace merov::output
{
namespace
{

double OnTenths(double x)
{
    return std::round(x * 10.0) / 10.0;
}

} // namespace

void ChartSettings::DecreaseChart()
{
    ChartMargin = OnTenths(ChartMargin + 0.1);
}

void ChartSettings::IncreaseChart()
{
    if (ChartMargin > -0.5) ChartMargin = OnTenths(ChartMargin - 0.1);
}

void ChartSettings::IncreaseLops()
{
    LopScale = OnTenths(LopScale + 1.0);
}

void ChartSettings::DecreaseLops()
{
    if (LopScale > 1.0) LopScale = OnTenths(LopScale - 1.0);
}

void ChartSettings::StepLopsUp()
{
    LopScale = OnTenths(LopScale + (LopScale < 1.0 ? 0.1 : 1.0));
}

void ChartSettings::StepLopsDown()
{
    if (LopScale > 1.0)
        LopScale = OnTenths(LopScale - 1.0);
    else if (LopScale > 0.1)
        LopScale = OnTenths(LopScale - 0.1);
}

} // namespace merov::output
