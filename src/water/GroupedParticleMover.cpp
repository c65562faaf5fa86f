// Life and step of the groups; see GroupedParticleMover.h.

#include "water/GroupedParticleMover.h"

#include <cmath>

#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/Collision.h"
#include "platform/Assert.h"
#include "water/GroupFreeze.h"
#include "water/GroupMembers.h"
#include "water/GroupMerge.h"
#include "water/ParticleManager.h"
#include "water/WaterStep.h"

namespace GroupedParticleMover {

GroupList groups;
bool groupDraw = false;

namespace {

// From cfg\water.cfg. The first two are shares that remain after one second.
float particleGroupInterpolation = 0.0f;  // of a member's gap to its place and temperature
float groupExpandSpeed = 0.0f;            // of the gap between radius and target radius
float iceGravityStrenght = 0.0f;          // factor on the gravity of groups

/// Longest move between two collision queries, as a share of the radius.
constexpr float hopShare = 0.75f;
/// What one step does to all groups.
struct GroupStep {
    GroupStep(const View& view, float dt)
        : water(view, dt),
          gravity(water.gravity * iceGravityStrenght),
          memberShare(std::pow(particleGroupInterpolation, dt)),
          radiusShare(std::pow(groupExpandSpeed, dt)) {}

    WaterStep water;
    Vector2 gravity;
    float memberShare;
    float radiusShare;
};

void Hop(ParticleGroup& group, Vector2 hop) {
    group.position += hop;
    if (Collision::CollideCircle(group.position, group.radius)) {
        group.hitThisStep = 1;
    }
}

/// Moves the group by `length`, longer than a hop, along the unit vector `direction`.
void HopAlong(ParticleGroup& group, Vector2 direction, float length) {
    const float hop = group.radius * hopShare;
    if (length - hop == length) {
        // So long that a hop is lost in its rounding: counted off, it would never end. So many
        // hops go further than anything can be seen.
        length = hop * 0x1p16f;
    }
    const Vector2 move = direction * hop;
    while (length > hop) {
        const Vector2 before = group.position;
        Hop(group, move);
        length -= hop;
        if (group.position == before) {
            // It lies where it is stopped, and would be put back there by each further hop.
            while (length > hop) {
                length -= hop;
            }
        }
    }
    Hop(group, direction * length);
}

/// Moves the group in hops, and takes from its velocity what the last query touched. Ice
/// slides: there is no friction. Unlike a particle's, the move isn't cut.
void Move(ParticleGroup& group, float dt) {
    const Vector2 velocity = group.velocity + group.pushVelocity;
    if (velocity.x == 0.0f && velocity.y == 0.0f) {
        return;
    }
    const Vector2 move = velocity * dt;
    const float length = Length(move);
    if (length > group.radius * hopShare && std::isfinite(length)) {
        HopAlong(group, move / length, length);
    } else {
        Hop(group, move);
    }
    const Vector2 normal = Collision::ContactNormal();
    group.velocity -= normal * Dot(normal, group.velocity);
}

/// Members follow the group and glide to their places in it.
void MoveMembers(ParticleGroup& group, Vector2 delta, float share) {
    for (Particle& member : group.particles) {
        member.position += delta;
        const Vector2 place =
            group.position + member.groupDirection * member.groupScale * group.radius;
        member.position = member.position * share + place * (1.0f - share);
        member.temperature = share * member.temperature + (1.0f - share) * group.temperature;
        member.dying = group.dying;
        member.killTimer = group.killTimer;
        member.pushVelocity = group.pushVelocity;
    }
}

/// False if the group is to go, with its members.
bool StepGroup(ParticleGroup& group, const GroupStep& step, float dt) {
    group.hitThisStep = 0;
    if (step.water.rectangle.IsOutside(group.position, group.radius + viewMargin) ||
        IsBeyondReason(group.position, group.velocity, group.pushVelocity, group.temperature)) {
        return false;
    }
    if (group.dying == 1) {
        group.killTimer -= dt;
        if (group.killTimer <= 0.0f) {
            return false;
        }
    }
    group.velocity += step.gravity;
    group.temperature = step.water.Warmed(group.temperature);
    group.radius = step.radiusShare * group.radius + (1.0f - step.radiusShare) * group.targetRadius;
    const Vector2 before = group.position;
    Move(group, dt);
    MoveMembers(group, group.position - before, step.memberShare);
    group.pushVelocity = {};
    return true;
}

bool GroupDraw(bool value, bool isSet) {
    if (isSet && value) {
        groupDraw = true;
    }
    return groupDraw;
}

const Console::CommandTable commands{
    {"ParticleGroupCount", Console::Count<groups>, "How many lumps of ice there are."},
    {"ParticleGroupDraw", GroupDraw,
     "Shows the circles of the lumps of ice, until the next level."},
};

GroupFreeze freezer;

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nInitialising grouped particle mover..");
    groupDraw = false;
    commands.Add();

    const ConfigFile config("cfg\\water.cfg");
    particleGroupInterpolation = config.GetFloat("particleGroupInterpolation");
    groupExpandSpeed = config.GetFloat("groupExpandSpeed");
    iceGravityStrenght = config.GetFloat("iceGravityStrenght");
    Clamp(particleGroupInterpolation, 0.0f, 1.0f);
    Clamp(groupExpandSpeed, 0.0f, 1.0f);
}

void Shutdown() {
    Console::Print("\nShutting down grouped particle mover..");
    groups.clear();
    groupDraw = false;
    commands.Remove();
}

void Freeze(ParticleList& particles) {
    freezer.Run(particles, groups);
}

void Step(const View& view, float dt, ParticleList& particles) {
    VANTREL_ASSERT(dt >= 0.0f);
    if (groups.empty()) {
        return;
    }
    const GroupStep step(view, dt);
    for (auto group = groups.begin(); group != groups.end();) {
        bool stays = StepGroup(*group, step, dt);
        if (stays && !(group->temperature <= freezingPoint && !group->particles.empty())) {
            ReleaseMembers(*group, particles);
            stays = false;
        }
        group = stays ? std::next(group) : groups.erase(group);
    }
    MergeGroups(groups);
}

void KillGroup(ParticleGroup& group) {
    if (group.dying == 0) {
        group.dying = 1;
        group.killTimer = ParticleManager::particleKillTime;
    }
}

}  // namespace GroupedParticleMover
