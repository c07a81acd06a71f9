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
  PlainTracker(const Samples& x, const AutoCorrelationOptions& options) : options_(options) {
    length_ = static_cast<int>(x.size());
    frames_ = length_ / 100;
    minLag_ = options.rateHz / options.highHz;
    maxLag_ = options.rateHz / options.lowHz;
    average_ = options.rateHz / 1000;
    const int g = (average_ + maxLag_) / 2 + 155;
    f0_ = g / 100 + 1;
    f1_ = length_ < g ? -1 : (length_ - g) / 100;
    level_.assign(static_cast<std::size_t>(frames_) + 1, -1);
    q_ = level_;
    Smooth8Bit(x);
  }

  std::vector<double> Track() {
    if (f1_ >= f0_) {
      FillLags();
      for (int f = f0_; f <= f1_; ++f) EstimateFrame(f);
      for (int pass = 0; pass < 2; ++pass) SmoothTrack(level_);
      for (int f = f0_; f <= f1_; ++f) {
        if (At(level_, f) < options_.voicingLevel) At(q_, f) = -1;
      }
      Continuity();
      Bridge();
      for (int pass = 0; pass < 4; ++pass) SmoothTrack(q_);
    }
    std::vector<double> out;
    for (const int tenths : q_) out.push_back(tenths * 0.1);
    return out;
  }

 private:
  static int& At(std::vector<int>& v, int i) { return v.at(static_cast<std::size_t>(i)); }

  void Smooth8Bit(const Samples& x) {
    smooth_.assign(x.size(), 128);
    for (int k = 0; k + average_ <= length_; ++k) {
      int sum = 0;
      for (int i = k; i < k + average_; ++i) sum += x[static_cast<std::size_t>(i)] / 256 + 128;
      At(smooth_, k + average_ / 2) = sum / average_;
    }
  }

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

  void EstimateFrame(int f) {
    const int p = 100 * f - 150;
    int sum = 0;
    for (int k = 0; k <= 31; ++k) sum += std::abs(At(smooth_, p + 10 * k) - 128);
    At(level_, f) = 10 * sum / 31;

    int best = 0;
    int least = 65535;
    for (int t = 1; t + 1 < static_cast<int>(lags_.size()); ++t) {
      const int a = Difference(p, At(lags_, t), 30, 11);
      if (a < least) {
        least = a;
        best = t;
      }
    }
    least = 65535;
    int lag = 0;
    for (int l = At(lags_, best - 1) + 1; l <= At(lags_, best + 1) - 1; ++l) {
      const int a = Difference(p, l, 12, 25);
      if (a < least) {
        least = a;
        lag = l;
      }
    }
    if (lag >= 2 * minLag_ && 2 * Difference(p, lag / 2, 12, 25) < 3 * least) {
      lag = lag / 2;
    } else if (lag >= 3 * minLag_ && 2 * Difference(p, lag / 3, 12, 25) < 3 * least) {
      lag = lag / 3;
    }
    At(q_, f) = lag == minLag_ || lag == maxLag_ ? -1 : options_.rateHz * 10 / lag;
  }

  void SmoothTrack(std::vector<int>& v) {
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

  void Continuity() {
    std::vector<int> marked;
    for (int r = f0_; r <= f1_; ++r) {
      if (At(q_, r) < 0) continue;
      int j = r;
      while (j < f1_ && At(q_, j + 1) >= 0) {
        const int tolerance = At(q_, j) * options_.tolerancePercent / 100;
        if (std::abs(At(q_, j) - At(q_, j + 1)) > tolerance) {
          if (j < f1_ - 1 && At(q_, j + 2) >= 0 &&
              std::abs(At(q_, j) - At(q_, j + 2)) <= tolerance) {
            At(q_, j + 1) = (At(q_, j) + At(q_, j + 2)) / 2;
          } else if (j == r || std::abs(At(q_, j + 1) - At(q_, j - 1)) > tolerance) {
            break;
          } else {
            At(q_, j) = (At(q_, j - 1) + At(q_, j + 1)) / 2;
          }
        }
        ++j;
      }
      if (j - r + 1 >= 5) {
        marked.push_back(j);
      } else {
        for (int f = r; f <= j; ++f) At(q_, f) = -2;
      }
      r = j;
    }
    for (const int end : marked) {
      if (end + 1 <= frames_ && At(q_, end + 1) >= 0) At(q_, end) = -1;
    }
  }

  void Bridge() {
    const int factor[] = {0, 0, 14, 17, 20, 22, 24, 26};
    for (int i = f0_; i < f1_; ++i) {
      if (At(q_, i) == -2) At(q_, i) = -1;
      if (At(q_, i) < 0 || At(q_, i + 1) != -2) continue;
      int j = i + 1;
      while (At(q_, j) == -2) ++j;
      const int d = j - i;
      const int a = At(q_, i);
      const int b = At(q_, j);
      const bool fill = d <= 7 && b >= 0 &&
                        std::abs(a - b) <= factor[d] * (a + b) * options_.tolerancePercent / 2000;
      for (int k = i + 1; k < j; ++k) At(q_, k) = fill ? a + (b - a) * (k - i) / d : -1;
    }
  }

  AutoCorrelationOptions options_;
  int length_, frames_, minLag_, maxLag_, average_, f0_, f1_;
  std::vector<int> smooth_, lags_, level_, q_;
};

}  // namespace cantorix::testing
