// Life and step of the groups; see GroupedParticleMover.h.

#include "water/GroupedParticleMover.h"

#include <cmath>
#include <utility>

#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "platform/Assert.h"
#include "water/GroupMembers.h"

namespace GroupedParticleMover {

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
    explicit GroupStep(const WaterStep& step)
        : water(step),
          gravity(step.gravity * iceGravityStrenght),
          memberShare(std::pow(particleGroupInterpolation, step.dt)),
          radiusShare(std::pow(groupExpandSpeed, step.dt)) {}

    const WaterStep& water;
    Vector2 gravity;
    float memberShare;
    float radiusShare;
};

Contact Hop(ParticleGroup& group, Vector2 hop, const WaterStep& step) {
    group.position += hop;
    const Contact contact = step.Collide(group.position, group.radius);
    if (contact) {
        group.hitThisStep = 1;
    }
    return contact;
}

/// Moves the group by `length`, longer than a hop, along the unit vector `direction`; gives what
/// the last hop touched.
Contact HopAlong(ParticleGroup& group, Vector2 direction, float length, const WaterStep& step) {
    const float hop = group.radius * hopShare;
    if (length - hop == length) {
        // So long that a hop is lost in its rounding: counted off, it would never end. So many
        // hops go further than anything can be seen.
        length = hop * 0x1p16f;
    }
    const Vector2 move = direction * hop;
    while (length > hop) {
        const Vector2 before = group.position;
        Hop(group, move, step);
        length -= hop;
        if (group.position == before) {
            // It lies where it is stopped, and would be put back there by each further hop.
            while (length > hop) {
                length -= hop;
            }
        }
    }
    return Hop(group, direction * length, step);
}

/// Moves the group in hops, and takes from its velocity what the last one touched. Ice slides:
/// there is no friction. Unlike a particle's, the move isn't cut.
void Move(ParticleGroup& group, const WaterStep& step) {
    const Vector2 velocity = group.velocity + group.pushVelocity;
    if (velocity.x == 0.0f && velocity.y == 0.0f) {
        return;
    }
    const Vector2 move = velocity * step.dt;
    const float length = Length(move);
    const bool isLong = length > group.radius * hopShare && std::isfinite(length);
    const Contact contact =
        isLong ? HopAlong(group, move / length, length, step) : Hop(group, move, step);
    group.velocity -= contact.normal * Dot(contact.normal, group.velocity);
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
bool StepGroup(ParticleGroup& group, const GroupStep& step) {
    group.hitThisStep = 0;
    if (step.water.rectangle.IsOutside(group.position, group.radius + viewMargin) ||
        IsBeyondReason(group.position, group.velocity, group.pushVelocity, group.temperature)) {
        return false;
    }
    if (group.dying == 1) {
        group.killTimer -= step.water.dt;
        if (group.killTimer <= 0.0f) {
            return false;
        }
    }
    group.velocity += step.gravity;
    group.temperature = step.water.Warmed(group.temperature);
    group.radius = step.radiusShare * group.radius + (1.0f - step.radiusShare) * group.targetRadius;
    const Vector2 before = group.position;
    Move(group, step.water);
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
    {"ParticleGroupCount", Console::Count<ParticleManager::current, &WaterState::groups>,
     "How many lumps of ice there are."},
    {"ParticleGroupDraw", GroupDraw,
     "Shows the circles of the lumps of ice, until the next level."},
};

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

void Freeze(const WaterParts& parts) {
    parts.work.freezer.Run(parts.water.particles, parts.water.groups, parts.random);
}

void Step(const WaterStep& step) {
    GroupList& list = step.water.groups;
    if (list.empty()) {
        return;
    }
    const GroupStep groupStep(step);
    // Those that stay move up.
    std::size_t kept = 0;
    for (ParticleGroup& group : list) {
        if (!StepGroup(group, groupStep)) {
            continue;
        }
        if (!(group.temperature <= freezingPoint && !group.particles.empty())) {
            ReleaseMembers(group, step.water.particles);
            continue;
        }
        std::swap(list[kept++], group);
    }
    for (std::size_t i = kept; i < list.size(); ++i) {
        step.work.freezer.Recycle(list[i]);
    }
    list.resize(kept);
    step.work.merger.Run(list);
}

void Freeze() {
    Freeze(ParticleManager::Parts());
}

void Step(const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    Step(WaterStep(ParticleManager::Parts(), view, dt));
}

void KillGroup(ParticleGroup& group) {
    ParticleManager::current.Kill(group);
}

}  // namespace GroupedParticleMover
