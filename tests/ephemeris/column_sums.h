#pragma once

#include <gtest/gtest.h>

#include <vector>

namespace merov::test
{

/// The values of a row as doubles.
template <class... Values>
std::vector<double> Row(Values... values)
{
    return {static_cast<double>(values)...};
}

/// Holds the sum of each column of a table, every value times the number of its row, to that of the published
/// table: a row out of place, a wrong digit or sign shows.
template <class Table, class Columns>
void ExpectColumnSums(const Table& table, Columns columns, const std::vector<double>& expected)
{
    std::vector<double> sums(expected.size());
    int number = 0;
    for (const auto& entry : table) {
        const std::vector<double> values = columns(entry);
        ASSERT_EQ(values.size(), sums.size());
        ++number;
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += number * values[i];
    }
    for (std::size_t i = 0; i < sums.size(); ++i)
        EXPECT_NEAR(sums[i], expected[i], 1e-8) << "column " << i;
}

} // namespace merov::test
