// factor_search.h - the search for all factors of one polynomial, stopped wherever a factor is to
// be refined: who asks for factors refines one after the other, or those of many polynomials side
// by side (factor_lanes.h), to the same factors.
// Decides on starts, on what counts as a factor and when to begin anew; polynomial_factors.h says
// what comes of it.
#pragma once

#include <array>
#include <span>

#include "analysis/bairstow.h"
#include "analysis/polynomial_factors.h"

namespace cantorix {

// What RefineFactor is to be called with, or the like of it.
struct RefinementTask {
  const double* p = nullptr;
  int n = 0;
  StepLimits limits{};
  QuadraticFactor start;
};

class FactorSearch {
 public:
  FactorSearch() = default;
  FactorSearch(const FactorSearch&) = delete;
  FactorSearch& operator=(const FactorSearch&) = delete;

  // Sets out on a polynomial as FactorPolynomial takes it, which need not be kept.
  void Begin(std::span<const double> a);

  // Whether all is over; otherwise there is a task.
  bool done() const { return stage_ == Stage::kDone; }
  const RefinementTask& task() const { return task_; }
  // Goes on to the next task with what came of the present one.
  void Take(Refinement outcome, QuadraticFactor refined);

  // Once done: what FactorPolynomial returns, and its list.
  bool factored() const { return factored_; }
  void Report(FactorList& list) const;

 private:
  // What the present task is for: searching on the rest, or finishing on the whole.
  enum class Stage { kSearch, kFinishSearched, kFinishCubic, kFinishQuadratic, kDone };

  void Prepare(std::span<const double> a);
  void BeginAttempt();
  void FailAttempt();
  void BeginFactor();
  void BeginSearch(int start);
  void BeginFinish(Stage stage, QuadraticFactor f);
  void EndFinish(Refinement outcome, QuadraticFactor finished);
  bool Accept(Refinement outcome, QuadraticFactor finished, QuadraticFactor& f) const;
  void Found(QuadraticFactor f);
  QuadraticFactor Start(int start);
  QuadraticFactor FirstStart();
  bool RanIntoAnother(QuadraticFactor before, QuadraticFactor after) const;
  void Deflate(QuadraticFactor f);

  std::span<const QuadraticFactor> found() const {
    return std::span(found_).first(static_cast<std::size_t>(foundCount_));
  }

  Stage stage_ = Stage::kDone;
  bool factored_ = false;
  RefinementTask task_;
  int degree_ = 0;      // of rest_
  int fullDegree_ = 0;  // of full_
  int zeroRoots_ = 0;
  int exponent_ = 0;  // full_ is the polynomial of the roots divided by this power of two
  int foundCount_ = 0;
  int attempt_ = 0;
  int start_ = 0;
  int knownCosines_ = 0;  // of cosines_
  std::array<double, kMaxPolynomialDegree + 1> full_;
  std::array<double, kMaxPolynomialDegree + 1> rest_;
  std::array<QuadraticFactor, kMaxPolynomialDegree / 2> found_;
  // Of the first starts in the first attempt, which are the same for all polynomials.
  std::array<double, kMaxPolynomialDegree / 2> cosines_;
};

}  // namespace cantorix
