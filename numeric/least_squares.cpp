#include "numeric/least_squares.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "numeric/matrix_lib.h"
#include "numeric/message_box.h"

#include <cmath>

namespace merov::numeric
{
namespace
{

constexpr double BiweightLimit = 4.685; // scale units; 95 % efficiency for normal errors
constexpr double GradientLimit = 0.001;
constexpr int MaxPasses = 1000;

/// The normal equations of a system with n unknowns. One object serves all passes of a call.
class NormalEquations
{
public:
    explicit NormalEquations(int n) : factor_(n, n), solution_(1, n) {}

    /// Solves A x = b in the sense of least squares. A fault leaves x and R alone.
    void Solve(const Matrix& A, const Vector& b, Vector& x, bool wantFactor, Matrix& R)
    {
        Accumulate(A, b);
        Factorise();
        Substitute();
        CopyMatrix(solution_, x);
        if (wantFactor) CopyMatrix(factor_, R);
    }

private:
    /// The upper triangle of A'A into factor_, A'b into solution_.
    void Accumulate(const Matrix& A, const Vector& b)
    {
        const int n = A.Columns();
        for (int i = 1; i <= n; ++i) {
            solution_[i] = 0.0;
            for (int j = 1; j <= n; ++j)
                factor_(i, j) = 0.0;
        }
        for (int k = 1; k <= A.Rows(); ++k)
            for (int i = 1; i <= n; ++i) {
                for (int j = i; j <= n; ++j)
                    factor_(i, j) += A(k, i) * A(k, j);
                solution_[i] += A(k, i) * b[k];
            }
    }

    /// Cholesky's factor of what factor_ holds, row by row in its place.
    void Factorise()
    {
        const int n = factor_.Rows();
        for (int i = 1; i <= n; ++i)
            for (int j = i; j <= n; ++j) {
                double sum = 0.0;
                for (int k = 1; k < i; ++k)
                    sum += factor_(k, i) * factor_(k, j);
                const double rest = factor_(i, j) - sum;
                factor_(i, j) = j == i ? SquareRoot(rest) : Quotient(rest, factor_(i, i));
            }
    }

    /// Forward and back substitution in the place of the right-hand side.
    void Substitute()
    {
        const int n = factor_.Rows();
        for (int i = 1; i <= n; ++i) {
            double sum = 0.0;
            for (int k = 1; k < i; ++k)
                sum += solution_[k] * factor_(k, i);
            solution_[i] = Quotient(solution_[i] - sum, factor_(i, i));
        }
        for (int i = n; i >= 1; --i) {
            double sum = 0.0;
            for (int k = i + 1; k <= n; ++k)
                sum += factor_(i, k) * solution_[k];
            solution_[i] = Quotient(solution_[i] - sum, factor_(i, i));
        }
    }

    Matrix factor_;
    Vector solution_;
};

/// Multiplies the rows of A and b by the roots of the weights. A full diagonal matrix of weights
/// gives the same numbers: the products with its zeros add nothing.
void WeighRows(const Matrix& A, const Vector& b, const Vector& roots, Matrix& weightedA, Vector& weightedB)
{
    for (int i = 1; i <= A.Rows(); ++i) {
        for (int j = 1; j <= A.Columns(); ++j)
            weightedA(i, j) = roots[i] * A(i, j);
        weightedB[i] = roots[i] * b[i];
    }
}

/// Length of the gradient of the weighted sum of squares, A'W r with the weighted A. `gradient` is
/// working space.
double GradientNorm(const Matrix& weightedA, const Vector& roots, const Vector& r, Vector& gradient)
{
    for (double& element : gradient)
        element = 0.0;
    for (int i = 1; i <= weightedA.Rows(); ++i) {
        const double weighted = roots[i] * r[i];
        for (int j = 1; j <= weightedA.Columns(); ++j)
            gradient[j] += weightedA(i, j) * weighted;
    }
    return VectorNorm(gradient);
}

} // namespace

void SolveLeastSquares(const Matrix& A, const Vector& b, Vector& x, bool wantFactor, Matrix& R)
{
    NormalEquations(A.Columns()).Solve(A, b, x, wantFactor, R);
}

void ComputeResiduals(const Matrix& A, const Vector& b, const Vector& x, Vector& r)
{
    for (int i = 1; i <= A.Rows(); ++i) {
        double sum = 0.0;
        for (int j = 1; j <= A.Columns(); ++j)
            sum += A(i, j) * x[j];
        r[i] = sum - b[i];
    }
}

double TukeyWeight(double u)
{
    if (std::fabs(u) > BiweightLimit) return 0.0;
    const double t = u / BiweightLimit;
    const double root = 1.0 - t * t;
    return root * root;
}

void SolveRobustLeastSquares(const Matrix& A, const Vector& b, Vector& r, Vector& x, Vector& weights, bool wantFactor,
                             Matrix& R)
{
    const int m = A.Rows();
    const int n = A.Columns();
    NormalEquations normal(n);
    Matrix weightedA(m, n);
    Vector weightedB(1, m), roots(1, m), gradient(1, n);
    int count = 0;
    double norm = 0.0;
    do {
        const double scale = MeanAbsDeviation(r);
        for (int i = 1; i <= m; ++i)
            r[i] = Quotient(r[i], scale);
        for (int i = 1; i <= m; ++i)
            roots[i] = TukeyWeight(r[i]);
        SquareRootElements(roots);
        WeighRows(A, b, roots, weightedA, weightedB);
        normal.Solve(weightedA, weightedB, x, wantFactor, R);
        ComputeResiduals(A, b, x, r);
        norm = GradientNorm(weightedA, roots, r, gradient);
        ++count;
    } while (norm >= GradientLimit && count <= MaxPasses);
    if (count > MaxPasses)
        ShowError(" Error in mathematical routine",
                  {"Overdetermined system not solved by weighted least square method.", "See doc for help."});
    CopyMatrix(roots, weights);
}

} // namespace merov::numeric
