// lpc_test.cpp - autocorrelation and prediction against plain twins, frames that predict nothing,
// and the envelope over display points.
#include "analysis/lpc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "analysis/lpc_envelope.h"
#include "analysis/lpc_frame.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::vector<double> Frame(std::size_t length, unsigned seed) {
  std::vector<double> x;
  testing::Samples samples = testing::Speech(4);
  if (samples.size() < 20000 + length) samples = testing::Noise(30000 + length, 9000, seed);
  const std::size_t start = 4000 + 977 * seed;
  for (std::size_t i = 0; i <= length; ++i) x.push_back(samples[start + i]);
  LpcFramer framer(length, true, 0.98);
  const auto frame = framer.Frame(x);
  return {frame.begin(), frame.end()};
}

TEST(Autocorrelate, HasTheDigitsOfOneSumAfterAnother) {
  for (const std::size_t length : {0u, 1u, 2u, 15u, 16u, 17u, 30u, 31u, 32u, 33u, 154u, 573u}) {
    const std::vector<double> y = Frame(length, 3);
    for (const std::size_t lags : {1u, 2u, 15u, 16u, 17u, 47u, 401u}) {
      std::vector<double> r(lags + 1, 4711.0);  // one guard value behind
      Autocorrelate(y, std::span(r).first(lags));
      for (std::size_t k = 0; k < lags; ++k) {
        double sum = 0.0;
        for (std::size_t i = 0; i + k < length; ++i) sum += y[i] * y[i + k];
        ASSERT_EQ(r[k], sum) << length << " samples, lag " << k << " of " << lags;
      }
      EXPECT_EQ(r[lags], 4711.0);
    }
  }
}

// The recursion as textbooks write it, with a table of all orders.
struct TwinResult {
  std::vector<double> k, a;
  double E;
};

TwinResult TwinRecursion(const std::vector<double>& r) {
  const std::size_t p = r.size() - 1;
  std::vector<std::vector<double>> a(p + 1, std::vector<double>(p + 1, 0.0));
  TwinResult twin{std::vector<double>(p + 1, 0.0), {}, r[0]};
  for (std::size_t i = 1; i <= p; ++i) {
    double sum = 0.0;
    for (std::size_t j = 1; j < i; ++j) sum += a[i - 1][j] * r[i - j];
    twin.k[i] = -(r[i] + sum) / twin.E;
    twin.E = i == 1 ? r[0] + twin.k[1] * r[1] : twin.E * (1.0 - twin.k[i] * twin.k[i]);
    for (std::size_t j = 1; j < i; ++j) a[i][j] = a[i - 1][j] + twin.k[i] * a[i - 1][i - j];
    a[i][i] = twin.k[i];
  }
  twin.a = a[p];
  twin.a[0] = 1.0;
  return twin;
}

TEST(LpcAnalyse, HasTheDigitsOfTheRecursionAndSolvesTheNormalEquations) {
  for (const std::size_t p : {1u, 2u, 3u, 14u, 24u, 60u}) {
    const std::vector<double> y = Frame(11 * p + 40, static_cast<unsigned>(p % 16));
    std::vector<double> r(p + 1);
    Autocorrelate(y, r);
    const TwinResult twin = TwinRecursion(r);
    const LpcResult lpc = LpcAnalyse(y, static_cast<int>(p));
    ASSERT_TRUE(lpc.valid);
    ASSERT_EQ(static_cast<std::size_t>(lpc.order), p);
    EXPECT_EQ(lpc.E, twin.E);
    for (std::size_t i = 0; i <= p; ++i) {
      ASSERT_EQ(lpc.a[i], twin.a[i]) << i << " of " << p;
      ASSERT_EQ(lpc.k[i], twin.k[i]) << i << " of " << p;
    }
    // sum over j of a[j] R[|i - j|] is E for i = 0 and 0 for the others.
    for (std::size_t i = 0; i <= p; ++i) {
      long double sum = i == 0 ? -static_cast<long double>(lpc.E) : 0.0L;
      for (std::size_t j = 0; j <= p; ++j) {
        sum += static_cast<long double>(lpc.a[j]) * r[i > j ? i - j : j - i];
      }
      EXPECT_NEAR(static_cast<double>(sum / r[0]), 0.0, 1e-12) << i << " of " << p;
    }
  }
}

TEST(LpcAnalyse, OfOrderOneIsTheFirstReflection) {
  const LpcResult lpc = LpcAnalyse(std::vector<double>{1.0, 2.0, 3.0}, 1);
  EXPECT_EQ(lpc.k[1], -8.0 / 14.0);
  EXPECT_EQ(lpc.a[0], 1.0);
  EXPECT_EQ(lpc.a[1], lpc.k[1]);
  EXPECT_EQ(lpc.a[2], 0.0);
  EXPECT_EQ(lpc.E, 14.0 + lpc.k[1] * 8.0);
}

TEST(LpcAnalyse, CutsTheOrderAndSaysSoOnce) {
  struct Row {
    int requested, used;
    std::string message;
  };
  const Row rows[] = {{-3, 0, ""},
                      {0, 0, ""},
                      {400, 400, ""},
                      {401, 400, "Requested LPC order too large\n"},
                      {std::numeric_limits<int>::max(), 400, "Requested LPC order too large\n"}};
  const std::vector<double> y = Frame(1000, 1);
  for (const Row& row : rows) {
    std::ostringstream errors;
    LpcResult lpc;
    LpcAnalyse(y, row.requested, lpc, errors);
    EXPECT_EQ(lpc.order, row.used) << row.requested;
    EXPECT_EQ(errors.str(), row.message) << row.requested;
    EXPECT_TRUE(lpc.valid) << row.requested;
  }
}

TEST(LpcAnalyse, OverwritesWhatAnEarlierFrameLeft) {
  LpcResult reused = LpcAnalyse(Frame(400, 2), 30);
  std::ostringstream errors;
  LpcAnalyse(Frame(154, 5), 14, reused, errors);
  const LpcResult fresh = LpcAnalyse(Frame(154, 5), 14);
  EXPECT_EQ(reused.a, fresh.a);
  EXPECT_EQ(reused.k, fresh.k);
}

TEST(LpcAnalyse, KnowsFramesThatPredictNothing) {
  struct Row {
    std::string name;
    std::vector<double> y;
    bool valid;
  };
  std::vector<double> impulse(50, 0.0);
  impulse[20] = 1.0;
  const Row rows[] = {{"no samples", {}, false},
                      {"silence", std::vector<double>(50, 0.0), false},
                      {"energy below the smallest number", std::vector<double>(50, 1e-200), false},
                      {"energy beyond all numbers", std::vector<double>(50, 1e200), false},
                      {"not a number", {1.0, kNan, 3.0, 2.0, 1.0}, false},
                      {"infinite", {1.0, kInf, 3.0, 2.0, 1.0}, false},
                      {"an impulse", impulse, true},
                      {"shorter than the order", {1.0, -2.0, 4.0}, true}};
  LpcEnvelopePlan plan(10, 5000.0, 11025.0);
  for (const Row& row : rows) {
    const LpcResult lpc = LpcAnalyse(row.y, 6);
    EXPECT_EQ(lpc.valid, row.valid) << row.name;
    std::vector<double> envelope(10, 4711.0);
    LpcEnvelopeDb(lpc, plan, envelope);
    if (row.valid) continue;
    EXPECT_EQ(envelope, std::vector<double>(10, 0.0)) << row.name;
  }
}

TEST(LpcFramer, EmphasisesThenWindows) {
  const std::vector<double> x{1.0, 2.0, 4.0, 8.0, 16.0};
  LpcFramer emphasised(4, true, 0.5);
  EXPECT_EQ(emphasised.inputSize(), 5u);
  const auto frame = emphasised.Frame(x);
  EXPECT_NEAR(frame[0], 0.08 * 1.5, 1e-12);
  EXPECT_NEAR(frame[2], 1.0 * 6.0, 1e-12);
  LpcFramer plain(4, false, 0.0);
  EXPECT_EQ(plain.inputSize(), 4u);
  EXPECT_EQ(plain.Frame(x)[3], 8.0);
  EXPECT_THROW(emphasised.Frame(std::span(x).first(4)), std::invalid_argument);
}

TEST(LpcEnvelope, IsThePowerOfTheInverseFilterAtTheBins) {
  const LpcResult lpc = LpcAnalyse(Frame(154, 4), 14);
  // 128 points up to half the rate fall on the bins.
  LpcEnvelopePlan plan(128, 5512.5, 11025.0);
  std::vector<double> envelope(129, 4711.0);
  LpcEnvelopeDb(lpc, plan, envelope);
  for (std::size_t k = 0; k < 128; ++k) {
    double re = 0.0, im = 0.0;
    for (std::size_t i = 0; i <= 14; ++i) {
      const double angle = kTwoPi * static_cast<double>(i * k) / 256.0;
      re += lpc.a[i] * std::cos(angle);
      im -= lpc.a[i] * std::sin(angle);
    }
    EXPECT_NEAR(envelope[k], 10.0 * std::log10(re * re + im * im), 1e-7) << k;
  }
  EXPECT_EQ(envelope[128], 4711.0);
}

TEST(LpcEnvelope, SpreadsTheDisplayPointsEvenlyBelowTheTopFrequency) {
  const LpcResult lpc = LpcAnalyse(Frame(154, 4), 14);
  LpcEnvelopePlan fine(400, 4000.0, 11025.0), coarse(100, 4000.0, 11025.0);
  std::vector<double> fineDb(400), coarseDb(100);
  LpcEnvelopeDb(lpc, fine, fineDb);
  LpcEnvelopeDb(lpc, coarse, coarseDb);
  for (std::size_t j = 0; j < 100; ++j) EXPECT_NEAR(coarseDb[j], fineDb[4 * j], 1e-9) << j;
  EXPECT_THROW(LpcEnvelopeDb(lpc, fine, coarseDb), std::invalid_argument);
}

}  // namespace
}  // namespace cantorix
