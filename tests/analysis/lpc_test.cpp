// lpc_test.cpp - autocorrelation and prediction against plain twins, frames that predict nothing,
// and the envelope over display points.
#include "analysis/lpc.h"

#include <gtest/gtest.h>

#include <sstream>

#include "analysis/framer.h"
#include "analysis/lpc_envelope.h"
#include "analysis/plain_frames.h"

namespace cantorix {
namespace {

using testing::kInfinity;
using testing::kNan;

// A windowed frame of speech.
std::vector<double> Frame(std::size_t length, std::size_t place = 3) {
  const testing::Samples speech = testing::Speech(4);
  const auto first = speech.begin() + static_cast<std::ptrdiff_t>(4000 + 977 * place);
  return testing::PlainInput({first, first + static_cast<std::ptrdiff_t>(length) + 1}, length,
                             0.98);
}

LpcResult Analysed(std::span<const double> y, int order) {
  LpcResult lpc;
  LpcAnalyse(y, order, lpc, std::cerr);
  return lpc;
}

TEST(LpcAnalyse, HasTheDigitsOfTheRecursion) {
  LpcResult lpc = Analysed(Frame(900), 70);  // what an earlier frame left is overwritten
  for (const std::size_t p : {60u, 24u, 14u, 3u, 2u, 1u}) {
    const std::vector<double> y = Frame(11 * p + 40, p % 16);
    const auto r = testing::PlainAutocorrelation(y, p + 1);
    const testing::PlainPrediction plain(r);
    LpcAnalyse(y, static_cast<int>(p), lpc, std::cerr);
    ASSERT_TRUE(lpc.valid);
    ASSERT_EQ(static_cast<std::size_t>(lpc.order), p);
    EXPECT_EQ(lpc.E, plain.E);
    EXPECT_TRUE(std::equal(plain.a.begin(), plain.a.end(), lpc.a.begin())) << p;
    EXPECT_TRUE(std::equal(plain.k.begin(), plain.k.end(), lpc.k.begin())) << p;
    EXPECT_EQ(lpc.a[p + 1], 0.0);
    EXPECT_EQ(lpc.k[p + 1], 0.0);
  }
}

TEST(LpcAnalyse, CutsTheOrderAndSaysSoOnce) {
  const std::vector<double> y = Frame(1000, 1);
  for (const auto& [requested, used] :
       {std::pair(-3, 0), {400, 400}, {401, 400}, {std::numeric_limits<int>::max(), 400}}) {
    std::ostringstream errors;
    LpcResult lpc;
    LpcAnalyse(y, requested, lpc, errors);
    EXPECT_EQ(lpc.order, used);
    EXPECT_EQ(errors.str(), requested > 400 ? "Requested LPC order too large\n" : "") << requested;
    EXPECT_TRUE(lpc.valid) << requested;
  }
}

TEST(LpcAnalyse, KnowsFramesThatPredictNothing) {
  std::vector<double> impulse(50, 0.0);
  impulse[20] = 1.0;
  LpcEnvelopePlan plan(10, 5000.0, 11025.0);
  const std::pair<std::vector<double>, bool> rows[] = {
      {{}, false},
      {std::vector<double>(50, 0.0), false},
      {std::vector<double>(50, 1e-200), false},  // energy below the smallest number
      {std::vector<double>(50, 1e200), false},   // and beyond all numbers
      {{1.0, kNan, 3.0, 2.0, 1.0}, false},
      {{1.0, kInfinity, 3.0, 2.0, 1.0}, false},
      {impulse, true},
      {{1.0, -2.0, 4.0}, true},  // shorter than the order
  };
  for (const auto& [y, valid] : rows) {
    const LpcResult lpc = Analysed(y, 6);
    EXPECT_EQ(lpc.valid, valid) << ::testing::PrintToString(y);
    std::vector<double> envelope(10, 4711.0);
    LpcEnvelopeDb(lpc, plan, envelope);
    EXPECT_EQ(envelope == std::vector<double>(10, 0.0), !valid || y == impulse);
  }
}

// An order above 255 fills the transform; the coefficients behind it are left out.
TEST(LpcEnvelope, HasTheDigitsOfThePlainSteps) {
  for (const int order : {1, 14, 255, 256, 300}) {
    const LpcResult lpc = Analysed(Frame(3000, 1), order);
    const auto a = lpc.polynomial();
    for (const int points : {1, 128, 400}) {
      LpcEnvelopePlan plan(points, 4000.0, 11025.0);
      auto expected = testing::PlainEnvelope({a.begin(), a.end()}, 4000.0, 11025.0, points);
      expected.push_back(4711.0);
      std::vector<double> envelope(expected.size(), 4711.0);
      LpcEnvelopeDb(lpc, plan, envelope);
      EXPECT_EQ(envelope, expected) << order << ", " << points << " points";
      envelope.resize(static_cast<std::size_t>(points) - 1);
      EXPECT_THROW(LpcEnvelopeDb(lpc, plan, envelope), std::invalid_argument);
    }
  }
}

}  // namespace
}  // namespace cantorix
