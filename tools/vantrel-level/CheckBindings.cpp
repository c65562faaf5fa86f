// Checks of who acts on whom: triggers on their targets, movers on their loads, forces on water.

#include <algorithm>
#include <deque>
#include <map>

#include "BoxTree.h"
#include "Check.h"
#include "Names.h"
#include "Outline.h"
#include "level/TriggerTypes.h"

namespace {

/// Units a second. A faster platform overtakes the water before it, which then dies inside.
constexpr float crushingSpeed = 220.0f;

TriggerKind KindOf(const LevelFile::Trigger& trigger) {
    return TriggerTypes::KindOf(trigger.type);
}

/// The trigger's row, or null for an unknown type.
const TriggerType* TypeOf(const LevelFile::Trigger& trigger) {
    return TriggerTypes::Find(static_cast<std::int32_t>(trigger.type));
}

/// Which kinds of records bear an id, as bits of TriggerTarget.
std::map<std::uint32_t, unsigned> BearersOfIds(const LevelFile& level) {
    std::map<std::uint32_t, unsigned> bearers;
    const auto add = [&](const auto& records, unsigned kind) {
        for (const auto& record : records) {
            bearers[record.id] |= kind;
        }
    };
    add(level.polygons, TargetPolygon);
    add(level.objects, TargetObject);
    add(level.forces, TargetForce);
    add(level.movers, TargetMover);
    add(level.sounds, TargetSound);
    add(level.emitters, TargetEmitter);
    return bearers;
}

std::string ListOfTargets(unsigned targets) {
    constexpr const char* words[] = {"polygon", "object", "force", "mover", "sound", "emitter"};
    std::string list;
    for (unsigned bit = 0; bit < 6; ++bit) {
        if ((targets & 1u << bit) != 0) {
            list += (list.empty() ? "" : " or ") + std::string(words[bit]);
        }
    }
    return list;
}

void CheckTarget(const LevelFile::Trigger& trigger, std::size_t number, unsigned bearers,
                 Problems& problems) {
    const TriggerType* const type = TypeOf(trigger);
    if (type == nullptr) {
        problems.Warning("trigger", number,
                         Message("has the unknown type ", static_cast<std::int32_t>(trigger.type),
                                 " and does nothing"));
        return;
    }
    const bool actsOnSounds = type->targets == TargetSound;
    if (trigger.targetId == 0 && TriggerTypes::Toggles(type->kind)) {
        problems.Warning("trigger", number,
                         "has target id 0: it acts on nothing, but takes all polygons of id 0 "
                         "out of the edge cleaning");
    } else if (trigger.targetId == 0 && type->targets != 0 && !actsOnSounds) {
        problems.Warning("trigger", number, "has target id 0 and acts on nothing");
    } else if (type->targets != 0 && (bearers & type->targets) == 0) {
        problems.Error("trigger", number,
                       Message("no ", ListOfTargets(type->targets), " bears its target id ",
                               trigger.targetId));
    } else if (type->targets == 0 && trigger.targetId != 0 && bearers == 0) {
        problems.Warning("trigger", number,
                         Message("nothing bears its target id ", trigger.targetId,
                                 ", nor does its type need one"));
    }
}

/// Targets of the right kind on which the type still has no effect.
void CheckEffect(const LevelFile& level, const LevelFile::Trigger& trigger, std::size_t number,
                 Problems& problems) {
    const TriggerType* const type = TypeOf(trigger);
    if (type == nullptr) {
        return;
    }
    if (type->needsWater && trigger.delay > 0.0f) {
        problems.Warning("trigger", number, "has a delay, which its type doesn't heed");
    }
    if (type->targets != TargetObject || trigger.targetId == 0) {
        return;
    }
    const LevelFile::Object* still = nullptr;
    for (const LevelFile::Object& object : level.objects) {
        if (object.id == trigger.targetId) {
            if (CountFrames(object.texture) != 1) {
                return;  // animated, or missing and told of elsewhere
            }
            still = &object;
        }
    }
    if (still != nullptr) {
        problems.Warning(
            "trigger", number,
            Message("no object of its target id ", trigger.targetId, " has more than one frame"));
    }
}

bool Crosses(LevelFile::Point a, LevelFile::Point b, LevelFile::Point p, LevelFile::Point q) {
    return Outline::Side(a, b, p) * Outline::Side(a, b, q) < 0 &&
           Outline::Side(p, q, a) * Outline::Side(p, q, b) < 0;
}

/// Whether the trigger surely lies inside of the outline. A corner of the outline on one of the
/// trigger's sides counts as a way out.
bool IsInside(const LevelFile::Point (&corners)[4], const Outline::Points& outline) {
    for (const LevelFile::Point corner : corners) {
        if (!Outline::Contains(outline, corner.x, corner.y)) {
            return false;
        }
    }
    // The area is two triangles, which share the side from corner 2 to corner 0.
    constexpr int ends[5][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {2, 0}};
    for (const auto& [first, last] : ends) {
        const LevelFile::Point a = corners[first];
        const LevelFile::Point b = corners[last];
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const LevelFile::Point p = outline[i];
            const bool touches = p != a && p != b && Outline::IsOnSegment(a, b, p);
            if (touches || Crosses(a, b, p, outline[(i + 1) % outline.size()])) {
                return false;
            }
        }
    }
    return true;
}

/// Solids that stay, and are whole: no polygon that cuts comes near.
std::vector<std::size_t> WholeSolids(const LevelFile& level,
                                     const std::deque<LevelPolygon>& polygons) {
    std::vector<Box> cuts;
    std::size_t number = 0;
    for (const LevelPolygon& polygon : polygons) {
        const auto& points = level.polygons[number++].points;
        if (!polygon.solid && !polygon.visible && !points.empty()) {
            cuts.push_back(Box::Round(points));
        }
    }
    const BoxTree tree(std::move(cuts));
    std::vector<std::size_t> solids;
    std::vector<std::size_t> hits;
    number = 0;
    for (const LevelPolygon& polygon : polygons) {
        if (polygon.solid && polygon.triangleCount > 0 && !polygon.movedByMover &&
            !polygon.toggledByTrigger) {
            tree.Find(Box::Round(level.polygons[number].points), hits);
            if (hits.empty()) {
                solids.push_back(number);
            }
        }
        ++number;
    }
    return solids;
}

void CheckTriggers(const LevelFile& level, const std::deque<LevelPolygon>& polygons,
                   Problems& problems) {
    const auto bearers = BearersOfIds(level);
    const std::vector<std::size_t> solids = WholeSolids(level, polygons);
    bool hasFinish = false;
    for (std::size_t i = 0; i < level.triggers.size(); ++i) {
        const LevelFile::Trigger& trigger = level.triggers[i];
        const auto found = bearers.find(trigger.targetId);
        CheckTarget(trigger, i, found == bearers.end() ? 0 : found->second, problems);
        CheckEffect(level, trigger, i, problems);
        const LevelFile::Point* c = trigger.corners;
        bool canFire = true;
        if (Outline::Side(c[0], c[1], c[2]) == 0 && Outline::Side(c[2], c[3], c[0]) == 0) {
            problems.Warning("trigger", i, "has no area");
            canFire = false;
        }
        const auto solid = std::ranges::find_if(solids, [&](std::size_t number) {
            return canFire && IsInside(trigger.corners, level.polygons[number].points);
        });
        if (solid != solids.end()) {
            problems.Warning("trigger", i,
                             Message("lies inside polygon ", *solid, ", where no water comes"));
            canFire = false;
        }
        hasFinish = hasFinish || (canFire && KindOf(trigger) == TriggerKind::LevelEnd);
    }
    if (!hasFinish) {
        problems.Warning("level", 0, "has no finish: water reaches no Level_end_a");
    }
}

/// Whether a trigger of one of these kinds names the id.
template <typename HasKind>
bool IsNamed(const LevelFile& level, std::uint32_t id, HasKind hasKind) {
    return id != 0 && std::ranges::any_of(level.triggers, [&](const LevelFile::Trigger& trigger) {
               return trigger.targetId == id && hasKind(KindOf(trigger));
           });
}

void CheckMovers(const LevelFile& level, const std::deque<LevelPolygon>& polygons,
                 Problems& problems) {
    std::map<std::uint32_t, bool> loads;  // whether something solid is among them
    for (const LevelFile::Object& object : level.objects) {
        loads[object.id];
    }
    std::size_t number = 0;
    for (const LevelPolygon& polygon : polygons) {
        bool& hasSolid = loads[level.polygons[number].id];
        hasSolid = hasSolid || polygon.solid;
        if (polygon.movedByMover && polygon.solid && polygon.triangleCount > 0 &&
            polygon.winding == 0) {
            problems.Warning("polygon", number,
                             "is moved and runs the other way round: it crushes no water");
        }
        if (polygon.movedByMover && !polygon.solid &&
            IsNamed(level, level.polygons[number].id,
                    [](TriggerKind kind) { return kind == TriggerKind::EntityAdd; })) {
            problems.Warning("polygon", number,
                             "is moved and not solid at the start: no trigger makes it solid");
        }
        ++number;
    }
    for (std::size_t i = 0; i < level.movers.size(); ++i) {
        const LevelFile::Mover& mover = level.movers[i];
        const auto load = loads.find(mover.id);
        if (load == loads.end()) {
            problems.Warning("mover", i, Message("no polygon or object bears its id ", mover.id));
        }
        if (mover.start == mover.end) {
            problems.Warning("mover", i, "has a path of no length");
        }
        if (!IsNamed(level, mover.id, TriggerTypes::SetsGoing)) {
            problems.Warning("mover", i, "no trigger sets it going");
        }
        if (mover.speed == 0.0f) {
            problems.Warning("mover", i, "has no speed");
        } else if (mover.speed < 0.0f) {
            problems.Warning("mover", i, "has a speed below 0 and leaves its path");
        } else if (mover.speed > crushingSpeed && load != loads.end() && load->second) {
            problems.Warning("mover", i,
                             Message("is faster than ", crushingSpeed,
                                     " units a second: what its polygons push dies"));
        }
    }
}

void CheckForces(const LevelFile& level, Problems& problems) {
    for (std::size_t i = 0; i < level.forces.size(); ++i) {
        if (!IsNamed(level, level.forces[i].id, TriggerTypes::LetsForcesAct)) {
            problems.Warning("force", i, "no trigger lets it act");
        }
    }
}

}  // namespace

void CheckBindings(const LevelFile& level, const std::deque<LevelPolygon>& polygons,
                   Problems& problems) {
    CheckMovers(level, polygons, problems);
    CheckForces(level, problems);
    CheckTriggers(level, polygons, problems);
}
