#pragma once

#include "numeric/arrays.h"
#include "numeric/fault.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

/// What tests of calculations share: faults, boxes, vectors and matrices.

namespace merov::test
{

/// The number of the fault that `routine` raises; 0 if it raises none.
template <class Routine>
int FaultOf(Routine&& routine)
{
    try {
        routine();
    } catch (const numeric::Fault& fault) {
        return fault.Number();
    }
    return 0;
}

/// Takes the boxes received so far, which must be one of `icon` with an OK button and the text
/// "title|line|line".
inline void ExpectBox(BoxRecorder& boxes, numeric::BoxIcon icon, const std::string& text)
{
    const std::vector<numeric::Box> taken = boxes.TakeAll();
    ASSERT_EQ(taken.size(), 1u) << text;
    EXPECT_EQ(BoxRecorder::Summary(taken[0]), text);
    EXPECT_EQ(taken[0].Icon, icon);
    EXPECT_EQ(taken[0].Buttons, numeric::BoxButtons::Ok);
}

/// A user who needs a minute to put a box away.
class SlowUser : public numeric::BoxReceiver
{
public:
    explicit SlowUser(FakeClock& clock) : clock_(clock), scope_(*this) {}
    numeric::BoxAnswer Show(const numeric::Box&) override
    {
        ++Boxes;
        clock_.Advance(60.0);
        return numeric::BoxAnswer::Ok;
    }
    int Boxes = 0;

private:
    FakeClock& clock_;
    numeric::ScopedBoxReceiver scope_;
};

/// A vector 1..n of the given elements.
inline numeric::Vector VectorOf(std::initializer_list<double> elements)
{
    numeric::Vector v(1, static_cast<int>(elements.size()));
    std::copy(elements.begin(), elements.end(), v.begin());
    return v;
}

/// A matrix of the given elements, row by row.
inline numeric::Matrix MatrixOf(int columns, std::initializer_list<double> elements)
{
    numeric::Matrix m(static_cast<int>(elements.size()) / columns, columns);
    int place = 0;
    for (const double element : elements) {
        m(place / columns + 1, place % columns + 1) = element;
        ++place;
    }
    return m;
}

/// The elements of a vector, or of a matrix row by row.
inline std::vector<double> Elements(const numeric::Vector& v)
{
    return {v.begin(), v.end()};
}
inline std::vector<double> Elements(const numeric::Matrix& m)
{
    std::vector<double> elements;
    for (int i = 1; i <= m.Rows(); ++i)
        for (int j = 1; j <= m.Columns(); ++j)
            elements.push_back(m(i, j));
    return elements;
}

/// Holds a vector or a matrix to `expected`, row by row.
template <class Array>
void ExpectNear(const Array& array, const std::vector<double>& expected, double tolerance = 0.0)
{
    const std::vector<double> elements = Elements(array);
    ASSERT_EQ(elements.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(elements[i], expected[i], tolerance) << "element " << i + 1;
}

} // namespace merov::test
