#pragma once
// What triggers can be: one row a type, in the order of their numbers. Loader, effects, checker,
// compiler, solver, the editor's project and the documents take numbers, names and targets from
// here. A new type is one more enumerator and row here, and its effect in
// actors/TriggerEffects.cpp.

#include <cstdint>
#include <string_view>

/// As level files number them. A file may hold any other number: such a trigger does nothing.
enum class TriggerKind : std::int32_t {
    Null = -1,
    ToIce = 0,
    ToWater = 1,
    ToSteam = 2,
    AnimPlayLoop = 3,
    AnimPlayOnce = 4,
    AnimStop = 5,
    SoundPlay = 100,
    SoundStop = 101,
    ForceDirectional = 200,
    ForceInstantaneous = 201,
    ForcePull = 202,
    ForcePush = 203,
    EntityRemove = 300,
    EntityAdd = 301,
    MoverGoToStartOnce = 401,
    MoverGoToEndOnce = 402,
    MoverStopOnce = 403,
    MoverGoToStart = 404,
    MoverGoToEnd = 405,
    MoverStop = 406,
    MoverLoopToStartOnce = 407,
    MoverLoopToEndOnce = 408,
    MoverLoopToStart = 409,
    MoverLoopToEnd = 410,
    EmitterBurst = 501,
    EmitterStart = 502,
    EmitterStop = 503,
    CameraZoomOnce = 601,
    CameraZoom = 602,
    CameraShakeOnce = 603,
    CameraShake = 604,
    Kill = 701,
    KillAtRandom = 702,
    LevelEnd = 801,
    CheckPoint = 901,
};

/// Kinds of records that a trigger acts on by its target id, as a set of bits.
enum TriggerTarget : unsigned {
    TargetNone = 0,
    TargetPolygon = 1,
    TargetObject = 2,
    TargetForce = 4,
    TargetMover = 8,
    TargetSound = 16,
    TargetEmitter = 32,
};

struct TriggerType {
    TriggerKind kind = TriggerKind::Null;
    std::string_view name;        ///< for authors, the console and maps
    std::uint32_t fireLimit = 0;  ///< firings until the next reset; 0: any number
    bool needsWater = false;      ///< acts on the water that fired it, so it can't be delayed
    unsigned targets = TargetNone;
    std::string_view sentence;  ///< for authors: what it does
    float repeatDelay = 0.0f;   ///< seconds between firings

    std::int32_t Number() const { return static_cast<std::int32_t>(kind); }
};

namespace TriggerTypes {

/// Fires once until the next reset ("_1"); without it, for all water in every step ("_a").
inline constexpr std::uint32_t once = 1;
inline constexpr bool onWater = true;
inline constexpr unsigned entities = TargetPolygon | TargetObject | TargetForce;

/// In ascending order of their numbers.
inline constexpr TriggerType all[] = {
    {TriggerKind::Null, "Null_a", 0, false, TargetNone, "nothing"},
    {TriggerKind::ToIce, "To_ice_a", 0, onWater, TargetNone, "cools the water inside to ice"},
    {TriggerKind::ToWater, "To_water_a", 0, onWater, TargetNone,
     "brings ice and steam inside back to water"},
    {TriggerKind::ToSteam, "To_steam_a", 0, onWater, TargetNone, "heats the water inside to steam"},
    {TriggerKind::AnimPlayLoop, "Anim_play_loop_1", once, false, TargetObject, "plays for ever"},
    {TriggerKind::AnimPlayOnce, "Anim_play_once_1", once, false, TargetObject,
     "plays once from the first frame"},
    {TriggerKind::AnimStop, "Anim_stop_1", once, false, TargetObject, "stops at its frame"},
    {TriggerKind::SoundPlay, "Sound_play_1", once, false, TargetSound, "starts all of the id"},
    {TriggerKind::SoundStop, "Sound_stop_1", once, false, TargetSound, "stops all of the id"},
    {TriggerKind::ForceDirectional, "Force_directional_a", 0, onWater, TargetForce,
     "speeds the water inside up in the force's direction"},
    {TriggerKind::ForceInstantaneous, "Force_instantenous_a", 0, onWater, TargetForce,
     "gives the water inside the force's speed"},
    {TriggerKind::ForcePull, "Force_multi_dir_pull_a", 0, onWater, TargetForce,
     "pulls the water inside to the force's place"},
    {TriggerKind::ForcePush, "Force_multi_dir_push_a", 0, onWater, TargetForce,
     "pushes the water inside away from the force's place"},
    {TriggerKind::EntityRemove, "Entity_remove_1", once, false, entities,
     "takes them out of the level"},
    {TriggerKind::EntityAdd, "Entity_add_1", once, false, entities, "puts them back"},
    {TriggerKind::MoverGoToStartOnce, "Mover_goto_start_1", once, false, TargetMover,
     "goes to its start and stops"},
    {TriggerKind::MoverGoToEndOnce, "Mover_goto_end_1", once, false, TargetMover,
     "goes to its end and stops"},
    {TriggerKind::MoverStopOnce, "Mover_stop_1", once, false, TargetMover, "stops where it is"},
    {TriggerKind::MoverGoToStart, "Mover_goto_start_a", 0, false, TargetMover,
     "goes to its start and stops"},
    {TriggerKind::MoverGoToEnd, "Mover_goto_end_a", 0, false, TargetMover,
     "goes to its end and stops"},
    {TriggerKind::MoverStop, "Mover_stop_a", 0, false, TargetMover, "stops where it is"},
    {TriggerKind::MoverLoopToStartOnce, "Mover_goto_start_loop_1", once, false, TargetMover,
     "goes to its start, then back and forth"},
    {TriggerKind::MoverLoopToEndOnce, "Mover_goto_end_loop_1", once, false, TargetMover,
     "goes to its end, then back and forth"},
    {TriggerKind::MoverLoopToStart, "Mover_goto_start_loop_a", 0, false, TargetMover,
     "goes to its start, then back and forth"},
    {TriggerKind::MoverLoopToEnd, "Mover_goto_end_loop_a", 0, false, TargetMover,
     "goes to its end, then back and forth"},
    {TriggerKind::EmitterBurst, "Emitter_create_burst_1", once, false, TargetEmitter,
     "gives one burst"},
    {TriggerKind::EmitterStart, "Emitter_start_1", once, false, TargetEmitter, "begins to emit"},
    {TriggerKind::EmitterStop, "Emitter_stop_1", once, false, TargetEmitter, "ceases to emit"},
    {TriggerKind::CameraZoomOnce, "Camera_zoom_1", once, false, TargetNone,
     "zooms the view out for a while"},
    {TriggerKind::CameraZoom, "Camera_zoom_a", 0, false, TargetNone,
     "zooms the view out while water is inside"},
    {TriggerKind::CameraShakeOnce, "Camera_shake_1", once, false, TargetNone, "shakes the view"},
    {TriggerKind::CameraShake, "Camera_shake_a", 0, false, TargetNone,
     "shakes the view while water is inside"},
    {TriggerKind::Kill, "Particle_kill_a", 0, onWater, TargetNone, "kills the water inside"},
    {TriggerKind::KillAtRandom, "Particle_kill_random_a", 0, onWater, TargetNone,
     "kills the water inside drop by drop"},
    {TriggerKind::LevelEnd, "Level_end_a", 0, false, TargetNone,
     "ends the level when enough water stands inside"},
    {TriggerKind::CheckPoint, "Checkpoint_1", once, false, TargetNone,
     "lost water comes back here"},
};

/// The row of a number, or null for an unknown one.
const TriggerType* Find(std::int32_t number);
/// The row of `name`, to the letter, or null.
const TriggerType* Find(std::string_view name);

/// The kind behind a number of a level file; an unknown number keeps its value, which is that of
/// no enumerator.
constexpr TriggerKind KindOf(std::uint32_t number) {
    return static_cast<TriggerKind>(static_cast<std::int32_t>(number));
}
/// Takes entities out of the level or puts them back.
constexpr bool Toggles(TriggerKind kind) {
    return kind == TriggerKind::EntityRemove || kind == TriggerKind::EntityAdd;
}
constexpr bool Kills(TriggerKind kind) {
    return kind == TriggerKind::Kill || kind == TriggerKind::KillAtRandom;
}
/// Sends a mover that stands at its start, as all do at first, on its way.
constexpr bool SetsGoing(TriggerKind kind) {
    return kind == TriggerKind::MoverGoToEnd || kind == TriggerKind::MoverGoToEndOnce ||
           (kind >= TriggerKind::MoverLoopToStartOnce && kind <= TriggerKind::MoverLoopToEnd);
}
/// Lets forces act on the water inside.
constexpr bool LetsForcesAct(TriggerKind kind) {
    return kind >= TriggerKind::ForceDirectional && kind <= TriggerKind::ForcePush;
}
/// Tells movers where to go.
constexpr bool SteersMovers(TriggerKind kind) {
    return kind >= TriggerKind::MoverGoToStartOnce && kind <= TriggerKind::MoverLoopToEnd;
}

}  // namespace TriggerTypes
