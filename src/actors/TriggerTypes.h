#pragma once
// What triggers can do: one row per type, in TriggerTypes.cpp. A new type is one more row there
// and, if nothing serves it yet, one more plain function above the table.

#include <span>

#include "actors/Trigger.h"

namespace TriggerTypes {

/// In ascending order of their numbers.
std::span<const TriggerType> All();
/// The row of the number; that of -1, which does nothing, for an unknown one.
const TriggerType& Find(int number);

}  // namespace TriggerTypes
