// factor_lanes_test.cpp - factors found one after the other and side by side have the digits of the
// plain search, whatever the polynomials beside them.
#include "analysis/factor_lanes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>

#include "analysis/plain_factors.h"
#include "analysis/polynomial_twin.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

struct Case {
  std::string name;
  std::vector<double> a;
};

class Random {
 public:
  double Uniform(double low, double high) {
    return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
  }
  std::size_t Below(std::size_t n) { return engine_() % n; }

 private:
  std::mt19937 engine_{20261122};
};

// Pairs and real roots, some of them several times or nearly so.
std::vector<double> FromRandomRoots(Random& random, std::size_t degree) {
  std::vector<testing::Complex> roots;
  const double largest = random.Below(4) == 0 ? 1.6 : 1.0;
  while (roots.size() < degree) {
    const bool real = degree - roots.size() == 1 || random.Below(5) == 0;
    const std::size_t times = random.Below(6) == 0 ? 3 : 1;
    const double radius = random.Uniform(0.2, largest);
    const double angle = random.Uniform(0.001, 3.14);
    const double spread = random.Below(2) == 0 ? 0.0 : 1e-7;
    for (std::size_t t = 0; t < times && roots.size() < degree; ++t) {
      const double moved = radius + spread * static_cast<double>(t);
      if (real) {
        roots.emplace_back(angle < 1.5 ? moved : -moved);
      } else if (degree - roots.size() >= 2) {
        testing::AddPair(roots, moved, angle);
      }
    }
  }
  return testing::FromRoots(roots);
}

std::vector<double> RandomCoefficients(Random& random, std::size_t degree) {
  std::vector<double> a(degree + 1);
  const std::size_t kind = random.Below(4);
  for (double& c : a) {
    c = random.Uniform(-1.0, 1.0);
    if (kind == 1) c = std::round(3.0 * c);  // zeros at both ends, roots that are whole numbers
    if (kind == 2) c = std::ldexp(c, static_cast<int>(random.Below(600)) - 300);
  }
  return a;
}

std::vector<Case> Cases() {
  std::vector<Case> cases = {
      {"nothing", {}},
      {"constant", {2.0}},
      {"overflows", {1e-300, 1e10, 1e10, 1e10, 1e10}},
      {"real roots of a quadratic", {1.0, -1.5, 0.5}},
      {"all zero", std::vector<double>(9, 0.0)},
      {"fifteenth root of one", {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -1}},
      {"the same root of a degree of 12",
       testing::FromRoots(std::vector<testing::Complex>(12, 0.9L))},
  };
  Random random;
  for (std::size_t i = 0; i < 300; ++i) {
    const std::size_t degree = i % 3 == 0 ? 14 : random.Below(26);
    cases.push_back({"roots " + std::to_string(i), FromRandomRoots(random, degree)});
    cases.push_back({"coefficients " + std::to_string(i), RandomCoefficients(random, degree)});
  }
  std::vector<double> ones(401, 1.0);  // roots all around the unit circle
  cases.push_back({"long", ones});
  return cases;
}

// The bits of all u and v.
std::vector<std::uint64_t> FactorBits(std::span<const QuadraticFactor> factors) {
  std::vector<std::uint64_t> bits;
  for (const QuadraticFactor& f : factors) {
    bits.push_back(std::bit_cast<std::uint64_t>(f.u));
    bits.push_back(std::bit_cast<std::uint64_t>(f.v));
  }
  return bits;
}

void ExpectSame(const testing::PlainFactors& plain, bool factored, const FactorList& list,
                const std::string& name) {
  EXPECT_EQ(factored, plain.factored) << name;
  EXPECT_EQ(list.linear, plain.linear) << name;
  EXPECT_EQ(list.degreeLeft, plain.degreeLeft) << name;
  EXPECT_EQ(FactorBits(list.quadratics()), FactorBits(plain.factors)) << name;
}

TEST(FactorSearch, HasTheDigitsOfThePlainSearch) {
  const std::vector<Case> cases = Cases();
  std::vector<testing::PlainFactors> plain;
  FactorList list;
  for (const Case& c : cases) {
    plain.emplace_back(c.a);
    const bool factored = FactorPolynomial(c.a, list);
    ExpectSame(plain.back(), factored, list, c.name);
  }

  FactorLanes lanes(kMaxPolynomialDegree);
  // Fewer than there are lanes, as many and more; the lanes remember nothing.
  for (const std::size_t count : {std::size_t{1}, FactorLanes::kLanes, cases.size()}) {
    std::vector<int> told(count);
    lanes.Factor({count, [&](std::size_t i) { return std::span(cases[i].a); },
                  [&](std::size_t i, bool factored, const FactorList& found) {
                    ++told[i];
                    ExpectSame(plain[i], factored, found, cases[i].name + ", in a lane");
                  }});
    EXPECT_EQ(told, std::vector<int>(count, 1));
  }
  EXPECT_THROW(FactorLanes(3).Factor({1, [&](std::size_t) { return std::span(cases[5].a); }, {}}),
               std::invalid_argument);
}

// What refuses a result in the middle of a batch leaves lanes that serve the next one.
TEST(FactorLanes, SurviveWhatTheTakerThrows) {
  const std::vector<double> a =
      testing::FromRoots({{0.5, 0.5}, {0.5, -0.5}, {0.1, 0.9}, {0.1, -0.9}});
  FactorLanes lanes(4);
  const auto coefficients = [&](std::size_t) { return std::span(a); };
  const auto refuse = [](std::size_t, bool, const FactorList&) { throw std::runtime_error(""); };
  EXPECT_THROW(lanes.Factor({50, coefficients, refuse}), std::runtime_error);
  std::vector<std::size_t> told;
  lanes.Factor({2, coefficients, [&](std::size_t i, bool, const FactorList& found) {
                  told.push_back(i);
                  EXPECT_EQ(FactorBits(found.quadratics()),
                            FactorBits(testing::PlainFactors(a).factors));
                }});
  EXPECT_EQ(told.size(), 2u);
}

}  // namespace
}  // namespace cantorix
