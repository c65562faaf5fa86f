// Plays moves; see Playing.h.

#include "Playing.h"

#include <algorithm>
#include <cmath>

#include "Switches.h"
#include "actors/Camera.h"
#include "game/Notice.h"
#include "game/RunRecorder.h"

namespace Playing {

namespace {

/// The turn goes on this long after a key is let go, in seconds: the time in which the angular
/// velocity falls to 1/e.
constexpr float coasting = 0.19f;
/// A tilt this near, in degrees, is near enough to take the keys off.
constexpr float nearEnough = 2.0f;
/// The end of the level is played to its last step, and the flight to water that came back, but
/// no move goes on for longer.
constexpr std::size_t mostSteps = 1600;

/// Watches whether the water is at rest: its middle, its spread and the tilt stay for a while.
/// Drops that quiver where they lie are at rest too.
class Rest {
public:
    /// Once after each step.
    bool Is(const World& world) {
        if (++step % apart == 0) {
            Look(world);
        }
        return isStill;
    }

private:
    void Look(const World& world) {
        Vector2 newCentre;
        float count = 0.0f;
        ForDrops(world.water, [&](const Drop& drop) {
            newCentre += drop.place;
            count += 1.0f;
        });
        count = std::max(count, 1.0f);
        newCentre /= count;
        float newSpread = 0.0f;
        ForDrops(world.water,
                 [&](const Drop& drop) { newSpread += Distance(drop.place, newCentre); });
        newSpread /= count;
        isStill = Distance(newCentre, centre) < near && std::fabs(newSpread - spread) < near &&
                  std::fabs(world.camera.angle - angle) < nearEnough;
        angle = world.camera.angle;
        centre = newCentre;
        spread = newSpread;
    }

    static constexpr std::uint32_t apart = 12;  ///< steps between two looks
    static constexpr float near = 2.0f;         ///< world units
    std::uint32_t step = 0;
    bool isStill = false;
    float angle = 0.0f;
    Vector2 centre{1.0e9f, 0.0f};
    float spread = 0.0f;
};

/// Which arrow keys are held: above 0 left, below 0 right, 0 none.
using Keys = int;

/// Takes steps in a situation, and notes them in its outcome.
class Player {
public:
    Player(Situation& in, const PlayRules& by, WorldWorkspace& with)
        : situation(in),
          rules(by),
          parts(in.world.Parts(with)),
          viewSize{by.start.viewWidth, by.start.viewHeight},
          before(in.world.camera.angle) {}

    /// One step of the move.
    void Step(const Move& move) {
        Take(move.scriptStep != Move::none ? KeysOfScript(move) : KeysTowards(move.angle),
             move.frameMs);
    }
    /// Steps as long as the condition holds, but no longer than any move.
    template <class GoesOn>
    void StepWhile(const Move& move, GoesOn goesOn) {
        while (goesOn() && situation.outcome.steps.size() < mostSteps) {
            Step(move);
        }
    }

private:
    Keys KeysTowards(float angle) const {
        const float ahead = angle - (situation.world.camera.angle + turning * coasting);
        return ahead > nearEnough ? 1 : ahead < -nearEnough ? -1 : 0;
    }
    /// None after the script's end.
    Keys KeysOfScript(const Move& move) const {
        const std::size_t step = move.scriptStep + situation.outcome.steps.size();
        const float turn = step < rules.script.size() ? rules.script[step].turn : 0.0f;
        return turn > 0.0f ? 1 : turn < 0.0f ? -1 : 0;
    }
    void Take(Keys keys, std::uint32_t ms) {
        const float dt = static_cast<float>(ms) * 0.001f;
        const RunStep step{dt, Camera::TurnOfKeys(keys > 0, keys < 0)};
        StepWorld(parts, step, viewSize);
        situation.outcome.steps.push_back(step);
        turning = (situation.world.camera.angle - before) / dt;
        before = situation.world.camera.angle;
        if (rules.leakSpace != nullptr) {
            situation.leaks.Look(situation.world, *rules.leakSpace, situation.outcome);
        }
    }

    Situation& situation;
    const PlayRules& rules;
    const WorldParts parts;
    const Vector2 viewSize;
    float before;  ///< the tilt before the last step
    float turning = 0.0f;
};

bool IsFlying(const World& world) {
    return world.camera.state == Camera::OpeningFlight;
}

}  // namespace

std::string Begin(HeadlessGame& game, const std::string& level, Run& start) {
    RunRecorder::Record("");
    if (!game.Start(level)) {
        return "cannot load level '" + level + "': " + LastReason();
    }
    start = RunRecorder::Current();
    Switches::Collect();
    return {};
}

bool FlyIn(Situation& situation, const PlayRules& rules, WorldWorkspace& work) {
    const World& world = situation.world;
    Player(situation, rules, work).StepWhile({}, [&] { return IsFlying(world); });
    ReadWorld(world, situation.outcome);
    return !IsFlying(world);
}

void Play(Situation& situation, const Move& move, const PlayRules& rules, WorldWorkspace& work) {
    const World& world = situation.world;
    Outcome& outcome = situation.outcome;
    outcome = {};
    outcome.steps.reserve(move.frames);
    Player player(situation, rules, work);
    const std::uint32_t most = move.frames + move.settle;
    Rest rest;
    std::uint32_t played = 0;
    while (played < (outcome.settled ? move.frames : most) && !outcome.lost && !outcome.cameBack) {
        player.Step(move);
        ++played;
        const std::uint32_t alive = CountAlive(world.water);
        outcome.lost = alive < rules.leastWater;
        outcome.cameBack = alive == 0;
        outcome.settled = rest.Is(world);
    }
    outcome.settled = outcome.settled || move.settle != 0;
    if (outcome.cameBack && !outcome.lost) {
        player.StepWhile(move, [&] { return CountAlive(world.water) == 0 || IsFlying(world); });
        outcome.settled = true;
    }
    const ProgressState& progress = world.progress;
    player.StepWhile(move, [&] { return progress.finishing && !progress.IsFinished(); });
    ReadWorld(world, outcome);
    outcome.lost = outcome.Alive() < rules.leastWater;
}

}  // namespace Playing
