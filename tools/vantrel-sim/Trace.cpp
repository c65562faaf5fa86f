// Prints positions and states as text that compares line by line. Nine digits keep every
// float exactly.

#include "Trace.h"

#include <cinttypes>
#include <cstdio>

#include "actors/Camera.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Random.h"
#include "game/Game.h"
#include "game/LevelProgress.h"
#include "game/StateHash.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace Trace {

namespace {

/// printf wants doubles; every float is one exactly.
double D(float value) {
    return static_cast<double>(value);
}

void PrintCamera() {
    std::printf("CAMERA %.9g %.9g %.9g %.9g %d %.9g %.9g\n", D(Camera::position.x),
                D(Camera::position.y), D(Camera::angle), D(Camera::zoom), Camera::state,
                D(Camera::shakeOffset.x), D(Camera::shakeOffset.y));
}

void PrintProgress() {
    std::printf("PROGRESS %u %d %u %.9g %.9g %u\n", LevelProgress::ElapsedMs(),
                LevelProgress::IsFinishing() ? 1 : 0, LevelProgress::WaterAtFinish(),
                D(LevelProgress::respawnX), D(LevelProgress::respawnY),
                LevelProgress::respawnAmount);
}

void PrintWater() {
    for (const Particle& p : ParticleManager::particles) {
        std::printf("P %.9g %.9g %.9g %.9g %.9g %d\n", D(p.position.x), D(p.position.y),
                    D(p.velocity.x), D(p.velocity.y), D(p.temperature), p.dying);
    }
    for (const ParticleGroup& g : GroupedParticleMover::groups) {
        std::printf("G %.9g %.9g %.9g %.9g %.9g %.9g %.9g %zu\n", D(g.position.x), D(g.position.y),
                    D(g.velocity.x), D(g.velocity.y), D(g.radius), D(g.targetRadius),
                    D(g.temperature), g.particles.size());
    }
}

void PrintActors() {
    for (const Mover& m : MoverManager::movers) {
        std::printf("M %u %.9g %d\n", m.id, D(m.distance), static_cast<int>(m.state));
    }
    for (const Trigger& t : TriggerManager::triggers) {
        std::printf("T %d %u\n", t.type, TriggerManager::StateOf(t).fireCount);
    }
}

}  // namespace

void PrintStep() {
    std::printf("STEP %u dt=%.9g\n", Game::StepCount(), D(Game::LastStep()));
    PrintCamera();
    std::printf("RANDOM %u\n", Random::state);
    PrintProgress();
    PrintWater();
    PrintActors();
}

void PrintEnd(std::uint32_t frames) {
    std::printf("END %s %u %u %u %u %u\n", LevelProgress::IsFinished() ? "finished" : "running",
                frames, Game::StepCount(), LevelProgress::ElapsedMs(),
                LevelProgress::WaterAtFinish(), LevelProgress::TotalScore());
}

void PrintSummary() {
    std::printf("finished %s\n", LevelProgress::IsFinished() ? "yes" : "no");
    std::printf("seconds %.3f\n", LevelProgress::ElapsedMs() / 1000.0);
    std::printf("water %u\n", LevelProgress::WaterAtFinish());
    std::printf("waterScore %u\n", LevelProgress::WaterScore());
    std::printf("timeScore %u\n", LevelProgress::TimeScore());
    std::printf("totalScore %u\n", LevelProgress::TotalScore());
    std::printf("state %016" PRIx64 "\n", StateHash());
}

}  // namespace Trace
