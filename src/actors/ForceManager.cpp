// The list of forces and its console commands.

#include "actors/ForceManager.h"

#include <cmath>
#include <string>

#include "engine/Console.h"
#include "engine/Text.h"

namespace ForceManager {

std::deque<Force> forces;
bool forceDraw = false;

namespace {

float FiniteOrZero(float value) {
    return std::isfinite(value) ? value : 0.0f;
}

void PrintUsage() {
    Console::Print(
        "\nUSAGE: MoveForceCreate "
        " < id : integer >"
        " < x : number >"
        " < y : number >"
        " < dir_x : number >"
        " < dir_y : number >"
        " < strenght : number >");
}

void CreateFromText(std::string text) {
    const std::vector<std::string> words = SplitWords(text);
    bool valid = words.size() == 6 && IsInteger(words[0]);
    for (std::size_t i = 1; valid && i < words.size(); ++i) {
        valid = IsNumber(words[i]);
    }
    if (!valid) {
        PrintUsage();
        return;
    }
    Add(static_cast<std::uint32_t>(ToInteger(words[0])), ToNumber(words[1]), ToNumber(words[2]),
        ToNumber(words[3]), ToNumber(words[4]), ToNumber(words[5]));
}

}  // namespace

void Initialise() {
    Shutdown();
    forceDraw = false;
    Console::Print("\nInitialising force manager.");
    Console::AddCommand("ForceCount", [] { return static_cast<int>(forces.size()); });
    Console::AddCommand("ForceCreate", CreateFromText);
    Console::AddCommand("ForceDraw", [](bool value, bool isSet) {
        if (isSet) {
            forceDraw = value;
        }
        return forceDraw;
    });
}

void Shutdown() {
    Console::Print("\nShutting down force manager.");
    forces.clear();
    Console::RemoveCommand("ForceCount");
    Console::RemoveCommand("ForceCreate");
    Console::RemoveCommand("ForceDraw");
}

void Add(std::uint32_t id, float x, float y, float directionX, float directionY, float strength) {
    Force force;
    force.id = id;
    force.position = {FiniteOrZero(x), FiniteOrZero(y)};
    force.direction = {FiniteOrZero(directionX), FiniteOrZero(directionY)};
    Normalise(force.direction);
    force.strength = FiniteOrZero(strength);
    forces.push_back(force);
}

}  // namespace ForceManager
