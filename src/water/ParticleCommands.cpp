#include "water/ParticleCommands.h"

#include <string>
#include <vector>

#include "actors/Camera.h"
#include "engine/Console.h"
#include "engine/Text.h"
#include "engine/Vector2.h"
#include "water/ParticleManager.h"

namespace {

float Access(float& value, float newValue, bool isSet) {
    if (isSet) {
        value = newValue;
    }
    return value;
}

float Gravity(float value, bool isSet) {
    return Access(ParticleManager::gravity, value, isSet);
}

float RoomTemperature(float value, bool isSet) {
    return Access(ParticleManager::roomTemperature, value, isSet);
}

float HeatTransferRate(float value, bool isSet) {
    Access(ParticleManager::heatTransferRate, value, isSet);
    if (isSet) {
        Clamp(ParticleManager::heatTransferRate, 0.0f, 1.0f);
    }
    return ParticleManager::heatTransferRate;
}

float SteamRiseRate(float value, bool isSet) {
    return Access(ParticleManager::steamRiseRate, value, isSet);
}

float SteamScatterRate(float value, bool isSet) {
    return Access(ParticleManager::steamScatterRate, value, isSet);
}

void ParticleCreate(std::string text) {
    const std::vector<std::string> words = SplitWords(text);
    if (words.size() != 4 || !IsNumber(words[0]) || !IsNumber(words[1]) || !IsNumber(words[2]) ||
        !IsInteger(words[3])) {
        Console::Print(
            "\nUsage: ParticleCreate < x : number > < y : number > < radius : number > "
            "< amount : integer number > ");
        return;
    }
    const std::int32_t amount = ToInteger(words[3]);
    if (amount < 1) {
        Console::Print("\nInvalid number of particles to make");
        return;
    }
    const float x = ToNumber(words[0]);
    const float y = ToNumber(words[1]);
    ParticleManager::CreateParticles(x, y, ToNumber(words[2]), static_cast<std::uint32_t>(amount));
    Camera::position = {x, y};
}

int ParticleCount() {
    return static_cast<int>(ParticleManager::Count());
}

struct Command {
    const char* name;
    ConsoleCommand::Function function;
};

const Command commands[] = {
    {"Gravity", &Gravity},
    {"RoomTemperature", &RoomTemperature},
    {"HeatTransferRate", &HeatTransferRate},
    {"SteamRiseRate", &SteamRiseRate},
    {"SteamScatterRate", &SteamScatterRate},
    {"ParticleCreate", &ParticleCreate},
    {"ParticleCount", &ParticleCount},
};

}  // namespace

void ParticleCommands::Add() {
    for (const Command& command : commands) {
        Console::AddCommand(command.name, command.function);
    }
}

void ParticleCommands::Remove() {
    for (const Command& command : commands) {
        Console::RemoveCommand(command.name);
    }
}
