// plain_spline.h - the natural cubic spline of the text books: the interval found by halving for
// every position.
#pragma once

#include <vector>

namespace cantorix::testing {

class PlainSpline {
 public:
  // Through `values` (two at least) at the knots 0, 1, 2, ...
  explicit PlainSpline(const std::vector<double>& values)
      : y_(values), y2_(y_.size()), n_(y_.size()) {
    std::vector<double> u(n_);
    for (std::size_t i = 1; i + 1 < n_; ++i) {
      const double sig = (X(i) - X(i - 1)) / (X(i + 1) - X(i - 1));
      const double p = sig * y2_[i - 1] + 2.0;
      y2_[i] = (sig - 1.0) / p;
      u[i] = (y_[i + 1] - y_[i]) / (X(i + 1) - X(i)) - (y_[i] - y_[i - 1]) / (X(i) - X(i - 1));
      u[i] = (6.0 * u[i] / (X(i + 1) - X(i - 1)) - sig * u[i - 1]) / p;
    }
    const double qn = 0.0;
    const double un = 0.0;
    y2_[n_ - 1] = (un - qn * u[n_ - 2]) / (qn * y2_[n_ - 2] + 1.0);
    for (std::size_t k = n_ - 1; k-- > 0;) y2_[k] = y2_[k] * y2_[k + 1] + u[k];
  }

  double At(double u) const {
    std::size_t low = 0;
    std::size_t high = n_ - 1;
    while (high - low > 1) {
      const std::size_t k = (high + low) / 2;
      (X(k) > u ? high : low) = k;
    }
    const double h = X(high) - X(low);
    const double a = (X(high) - u) / h;
    const double b = (u - X(low)) / h;
    return a * y_[low] + b * y_[high] +
           ((a * a * a - a) * y2_[low] + (b * b * b - b) * y2_[high]) * (h * h) / 6.0;
  }

 private:
  static double X(std::size_t knot) { return static_cast<double>(knot); }

  std::vector<double> y_, y2_;
  std::size_t n_;
};

}  // namespace cantorix::testing
