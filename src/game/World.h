#pragma once
// A world: all that a step of a level in play depends on, in one value. A copy goes on by itself
// and alike; what doesn't change after loading is shared between copies, which are good for as long
// as their level is loaded. Worlds of one level can be stepped on several threads at once, each
// with a workspace of its own.

#include <cstdint>

#include "actors/ActorsStep.h"
#include "audio/Disturbance.h"
#include "game/Progress.h"
#include "game/RunFile.h"

/// Where the parts of a world lie, and what steps need besides.
struct WorldParts : ActorsParts {
    ProgressState& progress;
};

/// Storage of steps, kept from one to the next.
struct WorldWorkspace {
    CollisionSpace space;
    WaterWorkspace water;
    ActorsWorkspace actors;
};

struct World {
    LevelState level;
    WaterState water;
    EffectsState effects;
    ActorsState actors;
    CameraState camera;
    ProgressState progress;
    RandomNumbers random;

    WorldParts Parts(WorldWorkspace& work);
};

/// The chances of a step's two impacts.
struct ImpactChances {
    ImpactChance ice;
    ImpactChance water;
};

/// Hears what happens in the steps of a world that is shown, and changes nothing of it.
class WorldListener {
public:
    virtual ~WorldListener() = default;
    /// The simulation took a step, in which triggers told this.
    virtual void OnSimulated(const TriggerEvents& events) = 0;
    /// Sounds follow; once in each step until the level is over.
    virtual void OnSounds(const ImpactChances& chances, float dt) = 0;
    virtual void OnRespawn() = 0;
    /// Enough water stands in the finish.
    virtual void OnFinishReached() = 0;
    /// The finish's animation is over, and with it the level.
    virtual void OnFinished() = 0;
};

/// Whether the simulation takes part in such a step.
bool IsPlaying(const WorldParts& world, const RunStep& step);
/// One module step, in a view of that size (units at zoom 1). Without a listener nobody hears. The
/// level's time must be the sum of its steps, unless the world is the one in play.
void StepWorld(const WorldParts& world, const RunStep& step, Vector2 viewSize,
               WorldListener* listener = nullptr);

/// Where the world in play lies. It can be stepped on the main thread only.
WorldParts WorldInPlay();
/// A copy of it.
World CopyWorldInPlay();
/// Goes on from a world of the loaded level.
void PutInPlay(const World& world);
