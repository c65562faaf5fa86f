// Checks of the files that records name.

#include <algorithm>
#include <map>

#include "Check.h"
#include "Names.h"
#include "engine/ConfigFile.h"
#include "graphics/TextureManager.h"
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
        } else if (CountFrames(name) == 0) {
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

}  // namespace

std::size_t CountFrames(const std::string& name) {
    std::vector<std::string> files;
    TextureManager::ExpandFrameNames(name, files);
    const auto isThere = [](const std::string& file) {
        return Platform::FindFile(file).has_value();
    };
    return static_cast<std::size_t>(std::ranges::count_if(files, isThere));
}

void CheckRecords(const LevelFile& level, Problems& problems) {
    CheckFiles(level, problems);
}
