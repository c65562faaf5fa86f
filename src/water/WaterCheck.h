#pragma once
// A hash of all water, for tests and for comparing runs, and the checks of the water's lists.

#include <cstdint>

namespace WaterCheck {

/// Of what WaterFold::AddWater hands over. Equal for equal water, whatever its addresses.
std::uint64_t Hash();

/// What is wrong with lists and grid, or null: chains that don't fit, ice in the grid.
const char* ListFault();
/// The same for values that are no numbers or beyond reason. The next step drops their owners.
const char* ValueFault();

/// In builds with VANTREL_VALIDATE: ends the program with a message if the lists have a fault.
void AfterStep();

}  // namespace WaterCheck
