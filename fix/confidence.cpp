#include "fix/confidence.h"

#include "numeric/fault.h"

#include <array>

namespace merov::fix
{

using numeric::Matrix;
using numeric::Vector;

namespace
{

constexpr int CircleRows = 11;
constexpr int CircleColumns = 4;
constexpr std::array<double, CircleColumns> CircleProbabilities{0.5, 0.95, 0.99, 0.999};

// The radius in units of the larger standard deviation; one row per tenth of the ratio of the smaller to
// the larger, one column per probability.
constexpr double CircleFactors[CircleRows][CircleColumns] = {
    {0.67449, 1.95996, 2.57583, 3.29053}, {0.68199, 1.96253, 2.57778, 3.29206}, {0.70585, 1.97041, 2.58377, 3.29673},
    {0.74993, 1.9842, 2.59421, 3.30489},  {0.80785, 2.00514, 2.60995, 3.31715}, {0.87042, 2.03586, 2.63257, 3.33464},
    {0.93365, 2.0813, 2.66533, 3.35949},  {0.99621, 2.14598, 2.71515, 3.39647}, {1.05769, 2.23029, 2.79069, 3.45698},
    {1.11807, 2.3318, 2.89743, 3.55939},  {1.17741, 2.44775, 3.03485, 3.71692},
};

/// The circle's table in the form that the interpolation reads.
struct CircleTable {
    Matrix Factors{CircleRows, CircleColumns};
    Vector Ratios{1, CircleRows};
    Vector Probabilities{1, CircleColumns};

    CircleTable()
    {
        for (int i = 1; i <= CircleRows; ++i) {
            Ratios[i] = (i - 1) / 10.0;
            for (int j = 1; j <= CircleColumns; ++j)
                Factors(i, j) = CircleFactors[i - 1][j - 1];
        }
        for (int j = 1; j <= CircleColumns; ++j)
            Probabilities[j] = CircleProbabilities[static_cast<std::size_t>(j - 1)];
    }
};

/// The indices of the values on both sides of x; twice the same for x on a value.
struct Neighbours {
    int Low;
    int High;
};

Neighbours Locate(const Vector& values, double x)
{
    for (int i = values.Lower(); i < values.Upper(); ++i) {
        if (values[i] == x) return {i, i};
        if (values[i] < x && x < values[i + 1]) return {i, i + 1};
    }
    if (values[values.Upper()] == x) return {values.Upper(), values.Upper()};
    numeric::RaiseIllegalCall();
}

/// Between the values of `z` at the neighbours of x.
double Between(double low, double high, const Vector& values, Neighbours at, double x)
{
    if (at.Low == at.High) return low;
    return low + (high - low) * (x - values[at.Low]) / (values[at.High] - values[at.Low]);
}

} // namespace

double EllipseFactor(double p)
{
    struct Row {
        double Probability;
        double Factor;
    };
    static constexpr std::array<Row, 8> Rows{{{0.3935, 1.0},
                                              {0.5, 1.38629},
                                              {0.6826, 2.29518},
                                              {0.8647, 4.0},
                                              {0.95, 5.99146},
                                              {0.9544, 6.1757},
                                              {0.99, 9.21034},
                                              {0.999, 13.81551}}};
    for (const Row& row : Rows)
        if (p == row.Probability) return row.Factor;
    return -1.0;
}

double EquivalentCircleRadius(double p, double sigma1, double sigma2)
{
    const double ratio = sigma1 < sigma2 ? numeric::Quotient(sigma1, sigma2) : numeric::Quotient(sigma2, sigma1);
    bool known = false;
    for (const double probability : CircleProbabilities)
        known = known || p == probability;
    if (!known) return -1.0;

    static const CircleTable Table;
    const double factor = InterpolateTable(Table.Factors, Table.Ratios, Table.Probabilities, ratio, p);
    return factor * (sigma1 > sigma2 ? sigma1 : sigma2);
}

double InterpolateTable(const Matrix& table, const Vector& rowValues, const Vector& columnValues, double x, double y)
{
    const Neighbours row = Locate(rowValues, x);
    const Neighbours column = Locate(columnValues, y);
    const double low = Between(table(row.Low, column.Low), table(row.Low, column.High), columnValues, column, y);
    const double high = Between(table(row.High, column.Low), table(row.High, column.High), columnValues, column, y);
    return Between(low, high, rowValues, row, x);
}

} // namespace merov::fix
