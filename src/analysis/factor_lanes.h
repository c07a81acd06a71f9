// factor_lanes.h - the factors of many polynomials, their refinements taken side by side.
// Each lane searches the factors of one polynomial (factor_search.h) and goes on to the next one
// when it is done; the steps of all lanes are taken at once, with the operations of bairstow.h in
// their order, so that every polynomial gets the factors that FactorPolynomial finds.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "analysis/factor_search.h"

namespace cantorix {

// Polynomials to be factored and what takes their factors.
struct FactorBatch {
  std::size_t count;
  // The coefficients of a polynomial, as FactorPolynomial takes them.
  std::function<std::span<const double>(std::size_t polynomial)> coefficients;
  // Is told of each polynomial, in the order in which they are done, what FactorPolynomial returns
  // and its list.
  std::function<void(std::size_t polynomial, bool factored, const FactorList& list)> take;
};

// The working memory of one thread.
class FactorLanes {
 public:
  static constexpr std::size_t kLanes = 16;

  // Polynomials of up to `degree`, 0 ... kMaxPolynomialDegree.
  explicit FactorLanes(int degree);

  void Factor(const FactorBatch& batch);

  // What a lane's steps are taken with: a refinement of bairstow.h. The polynomials stand at
  // p[i * kLanes + lane]; one of a lower degree has zeros in front, through which the recurrences
  // pass as zeros.
  struct alignas(64) Steps {
    double u[kLanes], v[kLanes], unit[kLanes];
    double tolerance[kLanes], longestStep[kLanes], left[kLanes];
    double length[kLanes], previous[kLanes];
    double ended[kLanes];  // 1 or 0
  };

 private:
  struct Lane {
    FactorSearch search;
    std::size_t polynomial = 0;
    bool busy = false;
  };

  void Fill(const FactorBatch& batch, std::size_t lane);
  void BeginTask(std::size_t lane);
  void EndTask(const FactorBatch& batch, std::size_t lane);

  std::size_t terms_;  // of the polynomials
  std::vector<double> p_;
  std::vector<Lane> lanes_;
  Steps steps_{};
  FactorList list_;
  std::size_t next_ = 0;  // the first polynomial that no lane has
  std::size_t busyLanes_ = 0;
};

}  // namespace cantorix
