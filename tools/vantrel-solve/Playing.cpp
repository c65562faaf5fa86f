// Plays moves and reads what the world looks like afterwards.

#include "Playing.h"

#include <algorithm>
#include <cmath>

#include "Machines.h"
#include "SituationHash.h"
#include "Switches.h"
#include "actors/Camera.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "game/LevelProgress.h"
#include "game/Notice.h"
#include "game/RunRecorder.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace Playing {

std::vector<RunStep> script;
std::function<void(Outcome&)> watch;

namespace {

/// The turn goes on this long after a key is let go, in seconds: the time in which the angular
/// velocity falls to 1/e.
constexpr float coasting = 0.19f;
/// A tilt this near, in degrees, is near enough to take the keys off.
constexpr float nearEnough = 2.0f;

/// Puts what was recorded since the recording had `before` steps into the outcome.
void ReadSteps(std::size_t before, Outcome& outcome) {
    const std::vector<RunStep>& steps = RunRecorder::Current().steps;
    const std::size_t count = std::min(steps.size() - before, Outcome::mostSteps);
    std::copy_n(steps.begin() + static_cast<std::ptrdiff_t>(before), count, outcome.steps.begin());
    outcome.stepCount = static_cast<std::uint32_t>(count);
}

std::size_t StepsSoFar() {
    return RunRecorder::Current().steps.size();
}

std::uint32_t CountAlive() {
    std::size_t alive = 0;
    for (const Particle& particle : ParticleManager::particles) {
        alive += particle.dying == 0 ? 1 : 0;
    }
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        alive += group.dying == 0 ? group.particles.size() : 0;
    }
    return static_cast<std::uint32_t>(alive);
}

void AddPlace(Vector2 place, Matter matter, Outcome& outcome) {
    if (outcome.placeCount < Outcome::mostPlaces) {
        outcome.matters[outcome.placeCount] = matter;
        outcome.places[outcome.placeCount++] = place;
        outcome.centre += place;
    }
}

void ReadWater(Outcome& outcome) {
    outcome.alive = CountAlive();
    for (const Particle& particle : ParticleManager::particles) {
        if (particle.dying == 0) {
            const bool isSteam = particle.temperature >= boilingPoint;
            AddPlace(particle.position, isSteam ? Matter::Steam : Matter::Water, outcome);
            outcome.steam += isSteam ? 1 : 0;
        }
    }
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        for (std::size_t i = 0; group.dying == 0 && i < group.particles.size(); ++i) {
            AddPlace(group.position, Matter::Ice, outcome);
            ++outcome.ice;
        }
    }
    if (outcome.placeCount > 0) {
        outcome.centre /= static_cast<float>(outcome.placeCount);
    }
}

void ReadFiredOnce(Outcome& outcome) {
    outcome.fired = 0;
    std::size_t index = 0;
    for (const Trigger& trigger : TriggerManager::triggers) {
        // Sounds, pictures and the like change nothing for the water.
        const TriggerKind kind = trigger.Kind();
        const bool matters = kind == TriggerKind::CheckPoint || TriggerTypes::Toggles(kind) ||
                             TriggerTypes::SteersMovers(kind);
        if (matters && trigger.typeInfo->fireLimit != 0) {
            const std::uint32_t fireCount = TriggerManager::StateOf(trigger).fireCount;
            SituationHash::Mix(outcome.fired, fireCount);
            if (fireCount != 0 && index < Outcome::mostTriggers) {
                outcome.firedTriggers[index / 64] |= std::uint64_t{1} << index % 64;
            }
        }
        ++index;
    }
}

/// In which fifth of its path a mover is, and which way it goes; only for the one nearest to
/// the water among those that go to and fro, since all together would make every moment new.
std::uint64_t MoverPlaces(Vector2 centre) {
    constexpr float reach = 300.0f;
    std::uint64_t hash = 0;
    const Mover* nearest = nullptr;
    float nearestDistance = reach;
    for (const Mover& mover : MoverManager::movers) {
        if (mover.state >= Mover::LoopingToStart) {
            const float distance = Distance(mover.start + mover.Offset(), centre);
            if (distance < nearestDistance) {
                nearest = &mover;
                nearestDistance = distance;
            }
        } else {
            const float share = mover.length > 0.0f ? mover.distance / mover.length : 0.0f;
            SituationHash::Mix(hash, static_cast<std::uint64_t>(share * 2.99f));
        }
    }
    if (nearest != nullptr) {
        const float share = nearest->distance / std::max(nearest->length, 1.0f);
        SituationHash::Mix(hash, nearest->id * 16 + static_cast<std::uint64_t>(share * 4.99f) * 2 +
                                     (nearest->state == Mover::LoopingToEnd ? 1 : 0));
    }
    return hash;
}

void ReadWorld(Outcome& outcome) {
    ReadWater(outcome);
    outcome.finished = LevelProgress::IsFinished();
    outcome.elapsedMs = LevelProgress::ElapsedMs();
    outcome.angle = Camera::angle;
    outcome.switches = Switches::State();
    ReadFiredOnce(outcome);
    outcome.movers = MoverPlaces(outcome.centre);
    outcome.machines = Machines::State(outcome.centre);
}

/// Watches whether the water is at rest: its middle, its spread and the tilt stay for a while.
/// Drops that quiver where they lie are at rest too.
class Rest {
public:
    /// Once after each frame.
    bool Is() {
        if (++frame % apart != 0) {
            return isStill;
        }
        Outcome now;
        ReadWater(now);
        float spread = 0.0f;
        for (std::size_t i = 0; i < now.placeCount; ++i) {
            spread += Distance(now.places[i], now.centre);
        }
        spread /= static_cast<float>(std::max(now.placeCount, 1u));
        isStill = Distance(now.centre, centre) < near && std::fabs(spread - lastSpread) < near &&
                  std::fabs(Camera::angle - angle) < nearEnough;
        angle = Camera::angle;
        centre = now.centre;
        lastSpread = spread;
        return isStill;
    }

private:
    static constexpr std::uint32_t apart = 12;  ///< frames between two looks
    static constexpr float near = 2.0f;         ///< world units
    std::uint32_t frame = 0;
    bool isStill = false;
    float angle = 0.0f;
    Vector2 centre{1.0e9f, 0.0f};
    float lastSpread = 0.0f;
};

/// Which keys bring the tilt to `angle`.
int KeysTowards(float angle, float turning) {
    const float ahead = angle - (Camera::angle + turning * coasting);
    return ahead > nearEnough ? 1 : ahead < -nearEnough ? -1 : 0;
}

/// Which keys the script had at a step; none after its end.
int KeysOfScript(std::size_t step) {
    const float turn = step < script.size() ? script[step].turn : 0.0f;
    return turn > 0.0f ? 1 : turn < 0.0f ? -1 : 0;
}

/// One frame with the arrow keys held: above 0 left, below 0 right, 0 none.
void PlayFrame(HeadlessGame& game, int keys, std::uint32_t frameMs) {
    game.Hold(keys > 0, keys < 0);
    game.Frame(frameMs);
}

}  // namespace

std::string Begin(HeadlessGame& game, const std::string& level) {
    RunRecorder::Record("");
    if (!game.Start(level)) {
        return "cannot load level '" + level + "': " + LastReason();
    }
    Switches::Collect();
    return {};
}

bool FlyIn(HeadlessGame& game, Outcome& outcome) {
    outcome = {};
    while (Camera::IsOpeningFlight() && StepsSoFar() < Outcome::mostSteps) {
        PlayFrame(game, 0, Move().frameMs);
    }
    ReadSteps(0, outcome);
    ReadWorld(outcome);
    return !Camera::IsOpeningFlight();
}

void Play(HeadlessGame& game, const Move& move, std::uint32_t leastWater, Outcome& outcome) {
    outcome = {};
    const std::size_t begin = StepsSoFar();
    float before = Camera::angle;
    float turning = 0.0f;
    const auto playFrame = [&] {
        const std::size_t step = move.scriptStep + (StepsSoFar() - begin);
        PlayFrame(
            game,
            move.scriptStep != Move::none ? KeysOfScript(step) : KeysTowards(move.angle, turning),
            move.frameMs);
        turning = (Camera::angle - before) / (static_cast<float>(move.frameMs) * 0.001f);
        before = Camera::angle;
        if (watch) {
            watch(outcome);
        }
    };
    const std::uint32_t most = move.frames + move.settle;
    Rest rest;
    std::uint32_t played = 0;
    while (played < (outcome.settled ? move.frames : most) && !outcome.lost && !outcome.cameBack) {
        playFrame();
        ++played;
        const std::uint32_t alive = CountAlive();
        outcome.lost = alive < leastWater;
        outcome.cameBack = alive == 0;
        outcome.settled = rest.Is();
    }
    outcome.settled = outcome.settled || move.settle != 0;
    const auto playWhile = [&](auto goesOn) {
        while (goesOn() && StepsSoFar() - begin < Outcome::mostSteps) {
            playFrame();
        }
    };
    if (outcome.cameBack && !outcome.lost) {
        playWhile([] { return CountAlive() == 0 || Camera::IsOpeningFlight(); });
        outcome.settled = true;
    }
    playWhile([] { return LevelProgress::IsFinishing() && !LevelProgress::IsFinished(); });
    ReadSteps(begin, outcome);
    ReadWorld(outcome);
    outcome.lost = outcome.alive < leastWater;
}

}  // namespace Playing
