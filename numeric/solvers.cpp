#include "numeric/solvers.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "numeric/matrix_lib.h"
#include "numeric/message_box.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <memory_resource>

namespace merov::numeric
{
namespace
{

constexpr int MaxSearchSteps = 1500;   // of FindRoot's marching search
constexpr double FarthestRoot = 1e30;  // beyond it the secant has run away
constexpr double JacobianStep = 1e-06; // of SolveSystem, in the unit of the unknowns

void ShowFailure(const char* line)
{
    ShowError(" Error in mathematical routine", {line});
}

double WrapToRange(double x, double lower, double upper)
{
    if (lower == 0.0) return RealMod(x, upper) + (x < 0.0 ? upper : 0.0);
    if (upper == 0.0) return RealMod(x, lower) + (x > 0.0 ? lower : 0.0);
    double turns = 0.0;
    if (x < lower) {
        const double r = RealMod(x, lower, &turns);
        return IsEven(turns) || upper >= LargestDouble ? r : r + upper;
    }
    if (x > upper) {
        const double r = RealMod(x, upper, &turns);
        return IsEven(turns) ? r : r + lower;
    }
    return x;
}

/// The function and the range of one search for a root. Each call of f is a fresh one: the value of
/// some functions depends on the calls before.
struct RootSearch {
    NumberedFunctions& Functions;
    int Number;
    double Lower;
    double Upper;
    bool Cyclic;

    double f(double x) const { return Functions.f(x, Number); }
    double Moved(double x, double by) const { return ScaleToRange(x + by, Lower, Upper, Cyclic); }

    /// Marches from x0 in steps of h, in the direction in which the function comes nearer to zero,
    /// until it is negative at a and not negative at b. False past the limit of steps.
    bool Bracket(double x0, double h, double& a, double& b) const
    {
        int steps = 0;
        if (f(x0) < 0.0) {
            a = x0;
            b = Moved(x0, h);
            if (f(b) < 0.0) {
                const double atB = std::fabs(f(b));
                if (atB >= std::fabs(f(a))) h = -h;
                do {
                    ++steps;
                    b = Moved(b, h);
                } while (steps <= MaxSearchSteps && f(b) < 0.0);
            }
        } else {
            b = x0;
            a = Moved(x0, -h);
            if (f(a) >= 0.0) {
                const double atA = f(a);
                if (atA < f(b)) h = -h;
                do {
                    ++steps;
                    a = Moved(a, h);
                } while (steps <= MaxSearchSteps && f(a) >= 0.0);
            }
        }
        return steps <= MaxSearchSteps;
    }

    /// The secant method from a and b; false when it doesn't converge.
    bool Secant(double a, double b, double tolerance, int maxIterations, double& root) const
    {
        double fa = f(a);
        double fb = f(b);
        for (int k = 2; k <= maxIterations && fb != fa; ++k) {
            const double c = b - (b - a) * fb / Finite(fb - fa);
            if (!(std::fabs(c) <= FarthestRoot)) return false;
            if (std::fabs(c - b) < tolerance) {
                root = c;
                return true;
            }
            a = b;
            fa = fb;
            b = c;
            fb = f(c);
        }
        return false;
    }
};

/// Values of all equations at x.
void EvaluateSystem(NumberedFunctions& fn, const Vector& x, int firstEquation, Vector& values)
{
    for (int i = 1; i <= x.Upper(); ++i)
        values[i] = fn.SysEq(x, firstEquation - 1 + i);
}

/// Inverse of the Jacobian at x by forward differences; `values` are those of the equations at x.
Matrix InverseJacobian(NumberedFunctions& fn, const Vector& x, int firstEquation, const Vector& values)
{
    const int n = x.Upper();
    Matrix jacobian(n, n), inverse(n, n);
    Vector moved(1, n), movedValues(1, n);
    for (int j = 1; j <= n; ++j) {
        CopyMatrix(x, moved);
        moved[j] += JacobianStep;
        EvaluateSystem(fn, moved, firstEquation, movedValues);
        for (int i = 1; i <= n; ++i)
            jacobian(i, j) = (movedValues[i] - values[i]) / JacobianStep;
    }
    double determinant = 0.0;
    InvertMatrix(jacobian, inverse, determinant);
    return inverse;
}

/// The step s = -A v, taken: x becomes x + s.
void TakeStep(const Matrix& A, const Vector& v, Vector& s, Vector& x)
{
    MultiplyMatrices(A, v, s);
    ScaleMatrix(-1.0, s, s);
    AddMatrices(x, s, x);
}

/// An interval that waits for its integral.
struct Interval {
    double Tolerance;
    double Left;
    double Half; ///< half of its width
    double AtLeft, AtMiddle, AtRight;
    double Area; ///< Simpson's rule over the whole interval
    int Level;
};

} // namespace

double ScaleToRange(double x, double lower, double upper, bool cyclic)
{
    if (lower >= upper) {
        ShowFailure("Unable to scale your number due to an incorrect range. See doc for help.");
        return 0.0;
    }
    if (cyclic)
        x = WrapToRange(x, lower, upper);
    else if (x < lower)
        x = lower;
    else if (x > upper)
        x = upper;
    return std::fabs(x) < Tolerance ? 0.0 : x;
}

double FindRoot(NumberedFunctions& fn, double x0, double h, double lower, double upper, bool cyclic, double tolerance,
                int maxIterations, int n, bool showMessage, bool& failed)
{
    const RootSearch search{fn, n, lower, upper, cyclic};
    const auto fail = [&](const char* line) {
        if (showMessage)
            ShowFailure(line);
        else
            failed = true;
        return 0.0;
    };
    double a = 0.0, b = 0.0, root = 0.0;
    if (!search.Bracket(x0, h, a, b)) return fail("Root-finding function (part 1) failed. See doc for help.");
    if (!search.Secant(a, b, tolerance, maxIterations, root))
        return fail("Root-finding function (part 2) failed. See doc for help.");
    return root;
}

void SolveSystem(NumberedFunctions& fn, Vector& x, double tolerance, int maxIterations, int& firstEquation)
{
    const int n = x.Upper();
    const int equation = firstEquation--;
    Vector v(1, n), w(1, n), y(1, n), z(1, n), s(1, n), u(1, n);
    Matrix update(n, n);

    EvaluateSystem(fn, x, equation, v);
    Matrix A = InverseJacobian(fn, x, equation, v);
    TakeStep(A, v, s, x);
    for (int k = n + 1; k <= maxIterations; ++k) {
        CopyMatrix(v, w);
        EvaluateSystem(fn, x, equation, v);
        SubtractMatrices(v, w, y);
        MultiplyMatrices(A, y, z);
        ScaleMatrix(-1.0, z, z);
        const double p = -DotProduct(s, z);
        MultiplyMatrices(s, A, u);
        AddMatrices(s, z, z);
        MultiplyMatrices(z, u, update);
        ScaleMatrix(Quotient(1.0, p), update, update);
        AddMatrices(A, update, A);
        TakeStep(A, v, s, x);
        if (VectorNorm(s) < tolerance) return;
    }
    ShowFailure("Nonlinear system solution failed. See doc for help.");
}

double IntegrateSimpson(NumberedFunctions& fn, double a, double b, double tolerance, int maxLevel, int n)
{
    const auto f = [&](double x) { return fn.f(x, n); };

    // One interval waits for each level at most. The usual depth fits into this space.
    constexpr std::size_t UsualDepth = 48;
    alignas(Interval) std::array<std::byte, UsualDepth * sizeof(Interval)> space;
    std::pmr::monotonic_buffer_resource memory(space.data(), space.size());
    std::pmr::vector<Interval> waiting(&memory);
    waiting.reserve(UsualDepth);

    const double half = (b - a) / 2.0;
    const double atLeft = f(a), atMiddle = f(a + half), atRight = f(b);
    waiting.push_back(
        {10.0 * tolerance, a, half, atLeft, atMiddle, atRight, half * (atLeft + 4.0 * atMiddle + atRight) / 3.0, 1});
    double sum = 0.0;
    while (!waiting.empty()) {
        const Interval top = waiting.back();
        const double h = top.Half;
        const double fd = f(top.Left + h / 2.0);
        const double fe = f(top.Left + 3.0 * h / 2.0);
        const double leftArea = h * (top.AtLeft + 4.0 * fd + top.AtMiddle) / 6.0;
        const double rightArea = h * (top.AtMiddle + 4.0 * fe + top.AtRight) / 6.0;
        waiting.pop_back();
        if (std::fabs(leftArea + rightArea - top.Area) < top.Tolerance) {
            sum = sum + leftArea + rightArea;
            continue;
        }
        if (top.Level >= maxLevel) {
            ShowFailure("Numerical Integration function failed. See doc for help.");
            return 0.0;
        }
        const double part = top.Tolerance / 2.0;
        waiting.push_back({part, top.Left + h, h / 2.0, top.AtMiddle, fe, top.AtRight, rightArea, top.Level + 1});
        waiting.push_back({part, top.Left, h / 2.0, top.AtLeft, fd, top.AtMiddle, leftArea, top.Level + 1});
    }
    return sum;
}

} // namespace merov::numeric
