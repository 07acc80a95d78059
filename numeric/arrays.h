#pragma once

#include <cassert>
#include <cstddef>
#include <type_traits>
#include <vector>

namespace merov::numeric
{

/// An array with bounds of its own, both included, such as 1..n, or 0..n where index 0 stands for
/// the instant of the true position. Indices outside the bounds are a programming error (assertion).
template <class T>
class BoundedArray
{
    static_assert(!std::is_same_v<T, bool>, "use unsigned char for flags");

public:
    /// An empty array with the bounds 1..0.
    BoundedArray() = default;

    /// Elements lower..upper, each `value`. upper = lower - 1 gives an empty array.
    BoundedArray(int lower, int upper, const T& value = T()) { Resize(lower, upper, value); }

    /// New bounds; every element becomes `value`.
    void Resize(int lower, int upper, const T& value = T())
    {
        assert(upper >= lower - 1);
        lower_ = lower;
        data_.assign(static_cast<std::size_t>(upper - lower + 1), value);
    }

    int Lower() const { return lower_; }
    int Upper() const { return lower_ + static_cast<int>(data_.size()) - 1; }
    int Size() const { return static_cast<int>(data_.size()); }

    T& operator[](int i)
    {
        assert(i >= Lower() && i <= Upper());
        return data_[static_cast<std::size_t>(i - lower_)];
    }
    const T& operator[](int i) const
    {
        assert(i >= Lower() && i <= Upper());
        return data_[static_cast<std::size_t>(i - lower_)];
    }

    auto begin() { return data_.begin(); }
    auto end() { return data_.end(); }
    auto begin() const { return data_.begin(); }
    auto end() const { return data_.end(); }

private:
    int lower_ = 1;
    std::vector<T> data_;
};

/// A vector of doubles; the vectors of linear algebra run from 1 to their upper bound.
using Vector = BoundedArray<double>;

/// A matrix of doubles, rows and columns counted from 1, stored row by row.
class Matrix
{
public:
    /// A matrix without elements.
    Matrix() = default;

    /// A matrix of zeros.
    Matrix(int rows, int columns) { Resize(rows, columns); }

    /// New size; every element becomes 0.
    void Resize(int rows, int columns)
    {
        assert(rows >= 0 && columns >= 0);
        rows_ = rows;
        columns_ = columns;
        data_.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), 0.0);
    }

    int Rows() const { return rows_; }
    int Columns() const { return columns_; }

    double& operator()(int row, int column) { return data_[Index(row, column)]; }
    double operator()(int row, int column) const { return data_[Index(row, column)]; }

private:
    std::size_t Index(int row, int column) const
    {
        assert(row >= 1 && row <= rows_ && column >= 1 && column <= columns_);
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(column - 1);
    }

    int rows_ = 0;
    int columns_ = 0;
    std::vector<double> data_;
};

} // namespace merov::numeric
