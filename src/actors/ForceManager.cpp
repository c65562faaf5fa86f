// The list of forces and its console commands.

#include "actors/ForceManager.h"

#include <cmath>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"

namespace ForceManager {

bool forceDraw = false;

namespace {

float FiniteOrZero(float value) {
    return std::isfinite(value) ? value : 0.0f;
}

const Console::CommandTable commands{
    {"ForceCount", Console::Count<Actors::current, &ActorsState::forces>,
     "How many forces there are."},
    {"ForceCreate", Console::Words<Add>, "Adds a force.",
     "\nUSAGE: MoveForceCreate  < id : integer > < x : number > < y : number > < dir_x : number > "
     "< dir_y : number > < strenght : number >"},
    {"ForceDraw", Console::Variable<forceDraw>, "Shows the forces, with id and strength."},
};

}  // namespace

void Initialise() {
    Shutdown();
    forceDraw = false;
    Console::Print("\nInitialising force manager.");
    commands.Add();
}

void Shutdown() {
    Console::Print("\nShutting down force manager.");
    forces.clear();
    commands.Remove();
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
