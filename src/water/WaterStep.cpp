#include "water/WaterStep.h"

#include <cmath>

WaterStep::WaterStep(const WaterParts& parts, const View& view, float seconds)
    : WaterParts(parts),
      dt(seconds),
      gravity(view.Down() * water.gravity * dt),
      rectangle(view.Rectangle()),
      heatBlend(1.0f - std::pow(1.0f - water.heatTransferRate, dt)) {}

float WaterStep::Warmed(float temperature) const {
    return water.roomTemperature * heatBlend + (1.0f - heatBlend) * temperature;
}

bool IsBeyondReason(Vector2 a, Vector2 b, Vector2 c, float d) {
    const float sum = std::fabs(a.x) + std::fabs(a.y) + std::fabs(b.x) + std::fabs(b.y) +
                      std::fabs(c.x) + std::fabs(c.y) + std::fabs(d);
    return !(sum < 1e15f);
}
