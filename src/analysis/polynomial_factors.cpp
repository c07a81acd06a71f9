// polynomial_factors.cpp - the search of one polynomial, its refinements one after the other.
#include "analysis/polynomial_factors.h"

#include "analysis/factor_search.h"

namespace cantorix {

bool FactorPolynomial(std::span<const double> a, FactorList& list) {
  FactorSearch search;
  search.Begin(a);
  while (!search.done()) {
    const RefinementTask& task = search.task();
    QuadraticFactor f = task.start;
    const Refinement outcome = RefineFactor(task.p, task.n, task.limits, f);
    search.Take(outcome, f);
  }
  search.Report(list);
  return search.factored();
}

}  // namespace cantorix
