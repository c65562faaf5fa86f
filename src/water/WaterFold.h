#pragma once
// All of the water's state and that of the effects, for comparing runs (engine/StateFold.h).

#include "engine/StateFold.h"
#include "water/FxParticleManager.h"
#include "water/WaterState.h"

namespace WaterFold {

/// All particles and groups in list order, and the values that the console can set for all of
/// them.
void AddWater(StateFold& fold, const WaterState& water);
/// All emitters and effect particles in list order.
void AddEffects(StateFold& fold, const EffectsState& effects);

}  // namespace WaterFold
