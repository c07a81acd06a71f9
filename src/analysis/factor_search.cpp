// factor_search.cpp - starts, deflation and the checks that keep factors apart.
// Factors are searched on what the earlier ones left of the polynomial and finished on the
// polynomial as given, so that the rounding of one division does not reach the next factor.
#include "analysis/factor_search.h"

#include <algorithm>
#include <cmath>

#include "analysis/fft.h"

namespace cantorix {
namespace {

constexpr StepLimits kFinish = {1e-12, 0.5, 12};
// The search ends early: the steps that finish the factor square what is missing.
constexpr double kSearchTolerance = 1e-6;
constexpr int kSearchSteps = 60;
// Residuals of a factor whose steps did not get below the tolerance: what rounding leaves per
// degree, and what will do when no attempt got that far. The first tells a cluster, where steps
// cannot become short, from steps that turn about without a root between them.
constexpr double kRoundingResidual = 1e-14;
constexpr double kLargestResidual = 1e-9;
constexpr int kStarts = 32;   // for one factor
constexpr int kAttempts = 4;  // for the whole polynomial
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

// The cosine is cut to a coarse grid, so that the last digit of a library's cosine does not reach
// the steps.
double CoarseCosine(double halfTurns) {
  return std::trunc(std::cos(kPi * halfTurns) * 1024.0) / 1024.0;
}

QuadraticFactor Pair(double radius, double cosine) {
  return {2.0 * radius * cosine, -radius * radius};
}

// Of the first start behind `found` factors.
double FirstCosine(int found, int attempt) {
  return CoarseCosine(Fraction(0.5 + found * kGolden + attempt * 0.23));
}

}  // namespace

void FactorSearch::Begin(std::span<const double> a) {
  Prepare(a);
  attempt_ = 0;
  BeginAttempt();
}

// Strips zeros at both ends, but never a quadratic, which goes on as it is; then brings the roots
// to moduli around 1, by powers of two only.
void FactorSearch::Prepare(std::span<const double> a) {
  fullDegree_ = zeroRoots_ = exponent_ = 0;
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

void FactorSearch::BeginAttempt() {
  degree_ = fullDegree_;
  foundCount_ = 0;
  std::copy_n(full_.data(), fullDegree_ + 1, rest_.data());
  BeginFactor();
}

void FactorSearch::FailAttempt() {
  if (attempt_ + 1 < kAttempts) {
    ++attempt_;
    BeginAttempt();
  } else {
    stage_ = Stage::kDone;
    factored_ = false;
  }
}

void FactorSearch::BeginFactor() {
  if (degree_ < 2) {
    stage_ = Stage::kDone;
    factored_ = true;
  } else if (degree_ == 2) {
    const QuadraticFactor f = {-rest_[1], -rest_[2]};
    if (fullDegree_ == 2) {
      Found(f);
    } else {
      BeginFinish(Stage::kFinishQuadratic, f);
    }
  } else if (degree_ == 3) {
    BeginFinish(Stage::kFinishCubic, FactorOfCubic(rest_.data()));
  } else {
    BeginSearch(0);
  }
}

void FactorSearch::BeginSearch(int start) {
  // Short steps keep to the region of the start, long ones leave a region without roots.
  constexpr std::array kLongestSteps = {1.0, 4.0, 1e9};
  if (start == kStarts) {
    FailAttempt();
    return;
  }
  stage_ = Stage::kSearch;
  start_ = start;
  const auto kind = static_cast<std::size_t>(start) % kLongestSteps.size();
  task_ = {
      rest_.data(), degree_, {kSearchTolerance, kLongestSteps[kind], kSearchSteps}, Start(start)};
}

// The last steps are taken on the polynomial as given.
void FactorSearch::BeginFinish(Stage stage, QuadraticFactor f) {
  stage_ = stage;
  task_ = {full_.data(), fullDegree_, kFinish, f};
}

void FactorSearch::Take(Refinement outcome, QuadraticFactor refined) {
  if (stage_ != Stage::kSearch) {
    EndFinish(outcome, refined);
  } else if (outcome != Refinement::kLost) {
    BeginFinish(Stage::kFinishSearched, refined);
  } else {
    BeginSearch(start_ + 1);
  }
}

void FactorSearch::EndFinish(Refinement outcome, QuadraticFactor finished) {
  QuadraticFactor f = task_.start;
  // Real roots far outside the unit circle cannot be finished: their powers overflow.
  if (Accept(outcome, finished, f) || (stage_ == Stage::kFinishQuadratic && f.HasRealRoots())) {
    Found(f);
  } else if (stage_ == Stage::kFinishQuadratic) {
    FailAttempt();
  } else {
    BeginSearch(stage_ == Stage::kFinishCubic ? 0 : start_ + 1);
  }
}

// The last steps may not run into a factor that was found before; then the factor has to do as the
// search left it.
bool FactorSearch::Accept(Refinement outcome, QuadraticFactor finished, QuadraticFactor& f) const {
  if (outcome != Refinement::kLost && !RanIntoAnother(f, finished)) {
    f = finished;
    // A step of 1e-12 bounds the residual by a small multiple of n times that.
    if (outcome == Refinement::kConverged) return true;
  }
  const double largest = attempt_ == 0 ? kRoundingResidual * fullDegree_ : kLargestResidual;
  return RelativeResidual(full_.data(), fullDegree_, f) <= largest;
}

void FactorSearch::Found(QuadraticFactor f) {
  Deflate(f);
  found_[static_cast<std::size_t>(foundCount_++)] = f;
  BeginFactor();
}

// First a pair just inside the unit circle, where the poles of speech are; from factor to factor
// its angle jumps, because a polynomial without all its roots on one side is badly conditioned.
// Then what the smallest roots would be if they were far from the others, then pairs spread over
// all angles and over radii around the mean of what is left.
QuadraticFactor FactorSearch::Start(int start) {
  const auto n = static_cast<std::size_t>(degree_);
  if (start == 0) return FirstStart();
  if (start == 1 && rest_[n - 2] != 0.0) {
    return {-rest_[n - 1] / rest_[n - 2], -rest_[n] / rest_[n - 2]};
  }
  const double mean = std::ldexp(1.0, RadiusExponent(rest_.data(), degree_));
  return Pair(mean * (0.5 + 0.5625 * Fraction(start * kPlastic)),
              CoarseCosine(Fraction((start + 0.5 * attempt_) * kGolden)));
}

QuadraticFactor FactorSearch::FirstStart() {
  const double radius = 1.0 - 0.7 / fullDegree_;
  if (attempt_ != 0) return Pair(radius, FirstCosine(foundCount_, attempt_));
  for (; knownCosines_ <= foundCount_; ++knownCosines_) {
    cosines_[static_cast<std::size_t>(knownCosines_)] = FirstCosine(knownCosines_, 0);
  }
  return Pair(radius, cosines_[static_cast<std::size_t>(foundCount_)]);
}

// True when the steps came much nearer to another factor than the search had been: two factors of
// a cluster stand side by side from the start.
bool FactorSearch::RanIntoAnother(QuadraticFactor before, QuadraticFactor after) const {
  if (Distance(before, after) <= kSearchTolerance * after.Radius()) return false;
  return std::any_of(found().begin(), found().end(), [&](QuadraticFactor other) {
    return Distance(after, other) < 0.5 * Distance(before, other);
  });
}

void FactorSearch::Deflate(QuadraticFactor f) {
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
void FactorSearch::Report(FactorList& list) const {
  list.count = 0;
  list.linear = zeroRoots_;
  list.degreeLeft = degree_;
  for (const QuadraticFactor& f : found()) {
    const bool last = degree_ == 0 && &f == &found().back() && list.count == 0;
    if (f.HasRealRoots() && !last) {
      list.linear += 2;
      continue;
    }
    QuadraticFactor& scaled = list.factors[static_cast<std::size_t>(list.count++)];
    scaled = exponent_ == 0
                 ? f
                 : QuadraticFactor{std::ldexp(f.u, exponent_), std::ldexp(f.v, 2 * exponent_)};
  }
}

}  // namespace cantorix
