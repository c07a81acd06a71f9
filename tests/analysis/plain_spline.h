// plain_spline.h - the natural cubic spline of the text books: arrays counted from 1, arbitrary
// knots, the interval found by halving for every position.
#pragma once

#include <vector>

namespace cantorix::testing {

class PlainSpline {
 public:
  // Through `values` (two at least) at the knots 0, 1, 2, ...
  explicit PlainSpline(const std::vector<double>& values)
      : n_(values.size()), x_(n_ + 1), y_(n_ + 1), y2_(n_ + 1) {
    for (std::size_t j = 0; j < n_; ++j) {
      x_[j + 1] = static_cast<double>(j);
      y_[j + 1] = values[j];
    }
    std::vector<double> u(n_ + 1);
    for (std::size_t i = 2; i < n_; ++i) {
      const double sig = (x_[i] - x_[i - 1]) / (x_[i + 1] - x_[i - 1]);
      const double p = sig * y2_[i - 1] + 2.0;
      y2_[i] = (sig - 1.0) / p;
      u[i] = (y_[i + 1] - y_[i]) / (x_[i + 1] - x_[i]) - (y_[i] - y_[i - 1]) / (x_[i] - x_[i - 1]);
      u[i] = (6.0 * u[i] / (x_[i + 1] - x_[i - 1]) - sig * u[i - 1]) / p;
    }
    const double qn = 0.0;
    const double un = 0.0;
    y2_[n_] = (un - qn * u[n_ - 1]) / (qn * y2_[n_ - 1] + 1.0);
    for (std::size_t k = n_ - 1; k >= 1; --k) y2_[k] = y2_[k] * y2_[k + 1] + u[k];
  }

  double At(double u) const {
    std::size_t low = 1;
    std::size_t high = n_;
    while (high - low > 1) {
      const std::size_t k = (high + low) / 2;
      if (x_[k] > u) {
        high = k;
      } else {
        low = k;
      }
    }
    const double h = x_[high] - x_[low];
    const double a = (x_[high] - u) / h;
    const double b = (u - x_[low]) / h;
    return a * y_[low] + b * y_[high] +
           ((a * a * a - a) * y2_[low] + (b * b * b - b) * y2_[high]) * (h * h) / 6.0;
  }

 private:
  std::size_t n_;
  std::vector<double> x_, y_, y2_;
};

}  // namespace cantorix::testing
