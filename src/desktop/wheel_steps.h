// wheel_steps.h - turns of a wheel as whole steps; what is left of a turn waits for the next one.
#pragma once

#include <QPoint>
#include <QWheelEvent>

namespace cantorix {

class WheelSteps {
 public:
  // The whole steps that the turns make by now, to the right and forward.
  QPoint Take(const QWheelEvent& event) {
    rest_ += event.angleDelta();
    const QPoint steps(rest_.x() / kStep, rest_.y() / kStep);
    rest_ -= steps * kStep;
    return steps;
  }

 private:
  static constexpr int kStep = QWheelEvent::DefaultDeltasPerStep;

  QPoint rest_;
};

}  // namespace cantorix
