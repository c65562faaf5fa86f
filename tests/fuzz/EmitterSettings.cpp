// Any bytes as the settings of an emitter, which then throws and ages particles.

#include "engine/Console.h"
#include "fuzz/Harness.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"
#include "water/FxParticleManager.h"

void Try(std::string_view input) {
    static const TemporaryDirectory directory;
    static const WorkingDirectoryGuard inside(directory.path);
    directory.Write("emitter.cfg", input);
    static const bool listed = (Platform::ForgetListings(), true);
    Emitter emitter;
    emitter.SetDirection(0.0f, -1.0f);
    emitter.LoadSettings("emitter.cfg");
    FxParticleManager::Initialise();
    FxParticleManager::Add(emitter);
    FxParticleManager::emitters.front().Burst();
    for (int i = 0; i < 10 && listed; ++i) {
        FxParticleManager::Step({}, 0.033f);
    }
    FxParticleManager::Shutdown();
}
