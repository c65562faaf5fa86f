// Checks of names and ids, record by record.

#include <map>
#include <set>

#include "Check.h"
#include "Names.h"
#include "Outline.h"
#include "engine/ConfigFile.h"
#include "engine/Text.h"
#include "platform/Paths.h"

namespace {

/// Looks each name up once.
class Files {
public:
    bool Has(const std::string& name) {
        const auto [entry, isNew] = known.try_emplace(name, false);
        if (isNew) {
            entry->second = Platform::FindFile(name).has_value();
        }
        return entry->second;
    }

    /// Names with "_FRAME" stand for all files that have anything between it and the ending.
    bool HasImage(const std::string& name) {
        const std::string upper = UpperCased(name);
        const std::size_t frame = upper.rfind("_FRAME");
        if (frame == std::string::npos) {
            return Has(name);
        }
        const std::size_t dot = upper.rfind('.');
        const std::string ending = dot == std::string::npos ? "" : upper.substr(dot);
        return !Platform::ListFiles(upper.substr(0, frame) + "_FRAME*" + ending).empty();
    }

private:
    std::map<std::string, bool> known;
};

std::string Missing(const char* what, const std::string& name) {
    return Message(what, " \"", Names::ToText(name), "\" isn't there");
}

void CheckFiles(const LevelFile& level, Problems& problems) {
    Files files;
    for (std::size_t i = 0; i < level.polygons.size(); ++i) {
        const std::string& name = level.polygons[i].texture;
        if (!name.empty() && !files.Has(name)) {
            problems.Error("polygon", i, Missing("texture", name));
        }
    }
    for (std::size_t i = 0; i < level.objects.size(); ++i) {
        const std::string& name = level.objects[i].texture;
        if (name.empty()) {
            problems.Warning("object", i, "has no texture");
        } else if (!files.HasImage(name)) {
            problems.Error("object", i, Missing("texture", name));
        }
    }
    for (std::size_t i = 0; i < level.sounds.size(); ++i) {
        const std::string& name = level.sounds[i].sound;
        if (name.empty()) {
            problems.Warning("sound", i, "has no sound file");
        } else if (!files.Has(name)) {
            problems.Error("sound", i, Missing("sound", name));
        }
    }
    for (std::size_t i = 0; i < level.emitters.size(); ++i) {
        const std::string& name = level.emitters[i].settings;
        if (name.empty()) {
            problems.Warning("emitter", i, "has no settings file and emits nothing");
            continue;
        }
        if (!files.Has(name)) {
            problems.Error("emitter", i, Missing("settings file", name));
            continue;
        }
        const ConfigFile settings(name);
        bool hasTexture = false;
        for (char digit = '1'; digit <= '8'; ++digit) {
            const std::string key = std::string("texture") + digit;
            hasTexture = hasTexture || settings.Has(key);
            if (settings.Has(key) && !files.Has(settings.GetString(key))) {
                problems.Error("emitter", i, Missing("texture", settings.GetString(key)));
            }
        }
        if (!hasTexture) {
            problems.Warning("emitter", i, "has settings without a texture and emits nothing");
        }
    }
}

/// Which kinds of records bear an id, as bits of Names::Target.
std::map<std::uint32_t, unsigned> BearersOfIds(const LevelFile& level) {
    std::map<std::uint32_t, unsigned> bearers;
    const auto add = [&](const auto& records, unsigned kind) {
        for (const auto& record : records) {
            bearers[record.id] |= kind;
        }
    };
    add(level.polygons, Names::TargetPolygon);
    add(level.objects, Names::TargetObject);
    add(level.forces, Names::TargetForce);
    add(level.movers, Names::TargetMover);
    add(level.sounds, Names::TargetSound);
    add(level.emitters, Names::TargetEmitter);
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
    const auto* type = Names::FindTriggerType(static_cast<std::int32_t>(trigger.type));
    if (type == nullptr) {
        problems.Warning("trigger", number,
                         Message("has the unknown type ", static_cast<std::int32_t>(trigger.type),
                                 " and does nothing"));
        return;
    }
    const bool isToggle = type->number == 300 || type->number == 301;
    const bool actsOnSounds = type->targets == Names::TargetSound;
    if (trigger.targetId == 0 && isToggle) {
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

void CheckTriggers(const LevelFile& level, Problems& problems) {
    const auto bearers = BearersOfIds(level);
    for (std::size_t i = 0; i < level.triggers.size(); ++i) {
        const LevelFile::Trigger& trigger = level.triggers[i];
        const auto found = bearers.find(trigger.targetId);
        CheckTarget(trigger, i, found == bearers.end() ? 0 : found->second, problems);
        const LevelFile::Point* c = trigger.corners;
        if (Outline::Side(c[0], c[1], c[2]) == 0 && Outline::Side(c[2], c[3], c[0]) == 0) {
            problems.Warning("trigger", i, "has no area");
        }
    }
}

void CheckMovers(const LevelFile& level, Problems& problems) {
    std::set<std::uint32_t> loads;
    for (const LevelFile::Polygon& polygon : level.polygons) {
        loads.insert(polygon.id);
    }
    for (const LevelFile::Object& object : level.objects) {
        loads.insert(object.id);
    }
    for (std::size_t i = 0; i < level.movers.size(); ++i) {
        const LevelFile::Mover& mover = level.movers[i];
        if (!loads.contains(mover.id)) {
            problems.Warning("mover", i, Message("no polygon or object bears its id ", mover.id));
        }
        if (mover.start == mover.end) {
            problems.Warning("mover", i, "has a path of no length");
        }
    }
}

}  // namespace

void CheckRecords(const LevelFile& level, Problems& problems) {
    CheckFiles(level, problems);
    CheckMovers(level, problems);
    CheckTriggers(level, problems);
}
