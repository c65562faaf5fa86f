// The actors of the world in play.

#include "actors/ActorsStep.h"
#include "water/ParticleManager.h"

namespace Actors {

ActorsState current;

namespace {

ActorsWorkspace workspace;

}  // namespace

ActorsParts Parts() {
    return {ParticleManager::Parts(), FxParticleManager::current, current, Camera::current,
            workspace};
}

}  // namespace Actors
