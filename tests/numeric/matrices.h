#pragma once

#include "numeric/arrays.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace merov::test
{

/// A vector 1..n of the given elements.
inline numeric::Vector VectorOf(std::initializer_list<double> elements)
{
    numeric::Vector v(1, static_cast<int>(elements.size()));
    int i = 0;
    for (const double element : elements)
        v[++i] = element;
    return v;
}

/// A matrix of the given elements, row by row.
inline numeric::Matrix MatrixOf(int rows, int columns, std::initializer_list<double> elements)
{
    numeric::Matrix m(rows, columns);
    int place = 0;
    for (const double element : elements) {
        m(place / columns + 1, place % columns + 1) = element;
        ++place;
    }
    return m;
}

inline void ExpectNear(const numeric::Matrix& m, const numeric::Matrix& expected, double tolerance)
{
    ASSERT_EQ(m.Rows(), expected.Rows());
    ASSERT_EQ(m.Columns(), expected.Columns());
    for (int i = 1; i <= m.Rows(); ++i)
        for (int j = 1; j <= m.Columns(); ++j)
            EXPECT_NEAR(m(i, j), expected(i, j), tolerance) << "row " << i << ", column " << j;
}

inline void ExpectNear(const numeric::Vector& v, const numeric::Vector& expected, double tolerance)
{
    ASSERT_EQ(v.Upper(), expected.Upper());
    for (int i = 1; i <= v.Upper(); ++i)
        EXPECT_NEAR(v[i], expected[i], tolerance) << "element " << i;
}

} // namespace merov::test
