// polynomial_factors.cpp - starts, deflation and the checks that keep factors apart.
// Factors are searched on what the earlier ones left of the polynomial and finished on the
// polynomial as given, so that the rounding of one division does not reach the next factor.
#include "analysis/polynomial_factors.h"

#include <algorithm>
#include <cmath>

#include "analysis/fft.h"

namespace cantorix {
namespace {

constexpr StepLimits kFinish = {1e-12, 0.5, 12};
// The search ends early: the steps that finish the factor square what is missing.
constexpr double kSearchTolerance = 1e-6;
constexpr int kSearchSteps = 60;
constexpr double kLargestResidual = 1e-9;  // of a factor whose steps ended in rounding
constexpr int kStarts = 32;                // for one factor
constexpr int kAttempts = 4;               // for the whole polynomial
// Multiples of these spread evenly over a unit interval and a unit square.
constexpr double kGolden = 0.6180339887;
constexpr double kPlastic = 0.7548776662;

double Distance(QuadraticFactor f, QuadraticFactor g) {
  return std::max(std::fabs(f.u - g.u), std::fabs(f.v - g.v));
}

double Fraction(double x) { return x - std::floor(x); }

// The exponent of two nearest the geometric mean of the roots' moduli; 0 when there is none.
int RadiusExponent(const double* p, int n) {
  const double product = std::fabs(p[n] / p[0]);
  if (!std::isnormal(product)) return 0;
  return static_cast<int>(std::lround(std::log2(product) / n));
}

// A pair at `halfTurns` of pi. The cosine is cut to a coarse grid, so that the last digit of a
// library's cosine does not reach the steps.
QuadraticFactor Pair(double radius, double halfTurns) {
  const double cosine = std::trunc(std::cos(kPi * halfTurns) * 1024.0) / 1024.0;
  return {2.0 * radius * cosine, -radius * radius};
}

class Factoriser {
 public:
  explicit Factoriser(std::span<const double> a) { Prepare(a); }

  bool Run() {
    for (attempt_ = 0; attempt_ < kAttempts; ++attempt_) {
      if (ExtractAll()) return true;
    }
    return false;
  }

  void Report(FactorList& list) const;

 private:
  void Prepare(std::span<const double> a);
  bool ExtractAll();
  bool Extract(QuadraticFactor& f) const;
  bool Search(QuadraticFactor& f) const;
  QuadraticFactor Start(int start) const;
  bool Finish(QuadraticFactor& f) const;
  bool RanIntoAnother(QuadraticFactor before, QuadraticFactor after) const;
  void Deflate(QuadraticFactor f);

  std::span<const QuadraticFactor> found() const {
    return std::span(found_).first(static_cast<std::size_t>(foundCount_));
  }

  int degree_ = 0;      // of rest_
  int fullDegree_ = 0;  // of full_
  int zeroRoots_ = 0;
  int exponent_ = 0;  // full_ is the polynomial of the roots divided by this power of two
  int foundCount_ = 0;
  int attempt_ = 0;
  std::array<double, kMaxPolynomialDegree + 1> full_;
  std::array<double, kMaxPolynomialDegree + 1> rest_;
  std::array<QuadraticFactor, kMaxPolynomialDegree / 2> found_;
};

// Strips zeros at both ends, but never a quadratic, which goes on as it is; then brings the roots
// to moduli around 1, by powers of two only.
void Factoriser::Prepare(std::span<const double> a) {
  while (!a.empty() && a.front() == 0.0) a = a.subspan(1);
  for (; a.size() > 1 && a.size() != 3 && a.back() == 0.0; a = a.first(a.size() - 1)) {
    ++zeroRoots_;
  }
  if (a.empty()) return;
  fullDegree_ = static_cast<int>(a.size()) - 1;
  std::transform(a.begin(), a.end(), full_.begin(), [&](double c) { return c / a[0]; });
  if (fullDegree_ > 2) exponent_ = RadiusExponent(full_.data(), fullDegree_);
  if (exponent_ == 0) return;
  for (std::size_t i = 0; i < a.size(); ++i) {
    full_[i] = std::ldexp(full_[i], -static_cast<int>(i) * exponent_);
  }
}

bool Factoriser::ExtractAll() {
  degree_ = fullDegree_;
  foundCount_ = 0;
  std::copy_n(full_.data(), fullDegree_ + 1, rest_.data());
  while (degree_ >= 2) {
    QuadraticFactor f;
    if (!Extract(f)) return false;
    Deflate(f);
    found_[static_cast<std::size_t>(foundCount_++)] = f;
  }
  return true;
}

bool Factoriser::Extract(QuadraticFactor& f) const {
  if (degree_ == 2) {
    f = {-rest_[1], -rest_[2]};
    // Real roots far outside the unit circle cannot be finished: their powers overflow.
    return fullDegree_ == 2 || Finish(f) || f.HasRealRoots();
  }
  if (degree_ == 3) {
    f = FactorOfCubic(rest_.data());
    if (Finish(f)) return true;
  }
  return Search(f);
}

bool Factoriser::Search(QuadraticFactor& f) const {
  // Short steps keep to the region of the start, long ones leave a region without roots.
  constexpr std::array kLongestSteps = {1.0, 4.0, 1e9};
  for (int start = 0; start < kStarts; ++start) {
    const auto kind = static_cast<std::size_t>(start) % kLongestSteps.size();
    const StepLimits limits = {kSearchTolerance, kLongestSteps[kind], kSearchSteps};
    f = Start(start);
    if (RefineFactor(rest_.data(), degree_, limits, f) != Refinement::kLost && Finish(f)) {
      return true;
    }
  }
  return false;
}

// First a pair just inside the unit circle, where the poles of speech are; from factor to factor
// its angle jumps, because a polynomial without all its roots on one side is badly conditioned.
// Then what the smallest roots would be if they were far from the others, then pairs spread over
// all angles and over radii around the mean of what is left.
QuadraticFactor Factoriser::Start(int start) const {
  const auto n = static_cast<std::size_t>(degree_);
  if (start == 0) {
    return Pair(1.0 - 0.7 / fullDegree_, Fraction(0.5 + foundCount_ * kGolden + attempt_ * 0.23));
  }
  if (start == 1 && rest_[n - 2] != 0.0) {
    return {-rest_[n - 1] / rest_[n - 2], -rest_[n] / rest_[n - 2]};
  }
  const double mean = std::ldexp(1.0, RadiusExponent(rest_.data(), degree_));
  return Pair(mean * (0.5 + 0.5625 * Fraction(start * kPlastic)),
              Fraction((start + 0.5 * attempt_) * kGolden));
}

// Takes the last steps on the polynomial as given. They may not run into a factor that was found
// before; then the factor has to do as the search left it.
bool Factoriser::Finish(QuadraticFactor& f) const {
  QuadraticFactor finished = f;
  const Refinement outcome = RefineFactor(full_.data(), fullDegree_, kFinish, finished);
  if (outcome != Refinement::kLost && !RanIntoAnother(f, finished)) {
    f = finished;
    // A step of 1e-12 bounds the residual by a small multiple of n times that.
    if (outcome == Refinement::kConverged) return true;
  }
  return RelativeResidual(full_.data(), fullDegree_, f) <= kLargestResidual;
}

// True when the steps came much nearer to another factor than the search had been: two factors of
// a cluster stand side by side from the start.
bool Factoriser::RanIntoAnother(QuadraticFactor before, QuadraticFactor after) const {
  if (Distance(before, after) <= kSearchTolerance * after.Radius()) return false;
  return std::any_of(found().begin(), found().end(), [&](QuadraticFactor other) {
    return Distance(after, other) < 0.5 * Distance(before, other);
  });
}

void Factoriser::Deflate(QuadraticFactor f) {
  degree_ -= 2;
  double b1 = 0.0, b2 = 0.0;
  for (int i = 0; i <= degree_; ++i) {
    double& p = rest_[static_cast<std::size_t>(i)];
    p = (p + f.v * b2) + f.u * b1;
    b2 = b1;
    b1 = p;
  }
}

// Real pairs count as taken out first: one goes on as the last quadratic only when there are no
// complex pairs.
void Factoriser::Report(FactorList& list) const {
  list.count = 0;
  list.linear = zeroRoots_;
  list.degreeLeft = degree_;
  for (const QuadraticFactor& f : found()) {
    const bool last = degree_ == 0 && &f == &found().back() && list.count == 0;
    if (f.HasRealRoots() && !last) {
      list.linear += 2;
      continue;
    }
    list.factors[static_cast<std::size_t>(list.count++)] = {std::ldexp(f.u, exponent_),
                                                            std::ldexp(f.v, 2 * exponent_)};
  }
}

}  // namespace

bool FactorPolynomial(std::span<const double> a, FactorList& list) {
  Factoriser factoriser(a);
  const bool done = factoriser.Run();
  factoriser.Report(list);
  return done;
}

}  // namespace cantorix
