// plain_amdf.h - the difference tracker as the method tells it: whole arrays, one sample, one
// frame, one lag at a time. The tracker's digits are held to it by the tests and the benchmark.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "analysis/autocorrelation_pitch.h"
#include "analysis/test_signals.h"

namespace cantorix::testing {

class PlainTracker {
 public:
  PlainTracker(const Samples& x, const AutoCorrelationOptions& options)
      : o_(options),
        length_(static_cast<int>(x.size())),
        minLag_(o_.rateHz / o_.highHz),
        maxLag_(o_.rateHz / o_.lowHz) {
    const int average = o_.rateHz / 1000;
    const int g = (average + maxLag_) / 2 + 155;
    f0_ = g / 100 + 1;
    f1_ = length_ < g ? -1 : (length_ - g) / 100;
    level_.assign(x.size() / 100 + 1, -1);
    q_ = level_;
    smooth_.assign(x.size(), 128);
    for (int k = 0; k + average <= length_; ++k) {
      int sum = 0;
      for (int i = k; i < k + average; ++i) sum += x[static_cast<std::size_t>(i)] / 256 + 128;
      At(smooth_, k + average / 2) = sum / average;
    }
  }

  std::vector<double> Track() {
    if (f1_ >= f0_) {
      FillLags();
      for (int f = f0_; f <= f1_; ++f) EstimateFrame(f);
      for (int pass = 0; pass < 2; ++pass) Smooth(level_);
      for (int f = f0_; f <= f1_; ++f) {
        if (At(level_, f) < o_.voicingLevel) At(q_, f) = -1;
      }
      KeepRuns();
      Bridge();
      for (int pass = 0; pass < 4; ++pass) Smooth(q_);
    }
    std::vector<double> out;
    for (const int tenths : q_) out.push_back(tenths * 0.1);
    return out;
  }

 private:
  static int& At(std::vector<int>& v, int i) { return v.at(static_cast<std::size_t>(i)); }
  int& Q(int f) { return At(q_, f); }
  bool Near(int f, int g, int tolerance) { return std::abs(Q(f) - Q(g)) <= tolerance; }

  void FillLags() {
    lags_ = {minLag_ - 1, minLag_};
    for (int v = minLag_ * 256; lags_.back() != maxLag_;) {
      v = v * 105 / 100;
      const int lag = std::min(v / 256, maxLag_);
      if (lag != lags_.back()) lags_.push_back(lag);
    }
    lags_.push_back(maxLag_ + 1);
  }

  int Difference(int p, int lag, int spacing, int terms) {
    int sum = 0;
    for (int k = 0; k < terms; ++k) {
      const int a = p + spacing * k - lag / 2;
      sum += std::abs(At(smooth_, a) - At(smooth_, a + lag));
    }
    return sum;
  }
  int Fine(int p, int lag) { return Difference(p, lag, 12, 25); }

  void EstimateFrame(int f) {
    const int p = 100 * f - 150;
    int sum = 0;
    for (int k = 0; k <= 31; ++k) sum += std::abs(At(smooth_, p + 10 * k) - 128);
    At(level_, f) = 10 * sum / 31;
    int best = 1;
    for (int t = 2; t + 1 < static_cast<int>(lags_.size()); ++t) {
      if (Difference(p, At(lags_, t), 30, 11) < Difference(p, At(lags_, best), 30, 11)) best = t;
    }
    int lag = At(lags_, best - 1) + 1;
    for (int l = lag + 1; l < At(lags_, best + 1); ++l) {
      if (Fine(p, l) < Fine(p, lag)) lag = l;
    }
    const int least = Fine(p, lag);
    if (lag >= 2 * minLag_ && 2 * Fine(p, lag / 2) < 3 * least) {
      lag = lag / 2;
    } else if (lag >= 3 * minLag_ && 2 * Fine(p, lag / 3) < 3 * least) {
      lag = lag / 3;
    }
    Q(f) = lag == minLag_ || lag == maxLag_ ? -1 : o_.rateHz * 10 / lag;
  }

  static void Smooth(std::vector<int>& v) {
    const int n = static_cast<int>(v.size());
    for (const int direction : {-1, 1}) {
      for (int step = 0; step < n; ++step) {
        const int i = direction < 0 ? n - 1 - step : step;
        if (At(v, i) < 0) continue;
        int sum = 3 * At(v, i);
        int weight = 3;
        for (int d = 1; d <= 2; ++d) {
          const int j = i + direction * d;
          if (j < 0 || j >= n || At(v, j) < 0) break;
          sum += (3 - d) * At(v, j);
          weight += 3 - d;
        }
        At(v, i) = (sum + weight / 2) / weight;
      }
    }
  }

  void KeepRuns() {
    std::vector<int> ends;
    for (int r = f0_; r <= f1_; ++r) {
      if (Q(r) < 0) continue;
      int j = r;
      for (; j < f1_ && Q(j + 1) >= 0; ++j) {
        const int tolerance = Q(j) * o_.tolerancePercent / 100;
        if (Near(j, j + 1, tolerance)) continue;
        if (j < f1_ - 1 && Q(j + 2) >= 0 && Near(j, j + 2, tolerance)) {
          Q(j + 1) = (Q(j) + Q(j + 2)) / 2;
        } else if (j == r || !Near(j + 1, j - 1, tolerance)) {
          break;
        } else {
          Q(j) = (Q(j - 1) + Q(j + 1)) / 2;
        }
      }
      if (j - r + 1 >= 5) ends.push_back(j);
      for (int f = r; f <= j && j - r + 1 < 5; ++f) Q(f) = -2;
      r = j;
    }
    for (const int end : ends) {
      if (end + 1 < static_cast<int>(q_.size()) && Q(end + 1) >= 0) Q(end) = -1;
    }
  }

  void Bridge() {
    const int factor[] = {0, 0, 14, 17, 20, 22, 24, 26};
    for (int i = f0_; i < f1_; ++i) {
      if (Q(i) == -2) Q(i) = -1;
      if (Q(i) < 0 || Q(i + 1) != -2) continue;
      int j = i + 1;
      while (Q(j) == -2) ++j;
      const int d = j - i, a = Q(i), b = Q(j);
      const bool fill =
          d <= 7 && b >= 0 && std::abs(a - b) <= factor[d] * (a + b) * o_.tolerancePercent / 2000;
      for (int k = i + 1; k < j; ++k) Q(k) = fill ? a + (b - a) * (k - i) / d : -1;
    }
  }

  AutoCorrelationOptions o_;
  int length_, minLag_, maxLag_, f0_, f1_;
  std::vector<int> smooth_, lags_, level_, q_;
};

}  // namespace cantorix::testing
