// Chains of moves; see Path.h.

#include "Path.h"

#include <utility>

Path Extend(Path before, const Outcome& outcome) {
    return std::make_shared<const Leg>(Leg{std::move(before), outcome.steps});
}

std::vector<RunStep> StepsOf(const Path& path) {
    std::vector<const Leg*> legs;
    for (const Leg* leg = path.get(); leg != nullptr; leg = leg->before.get()) {
        legs.push_back(leg);
    }
    std::vector<RunStep> steps;
    for (auto it = legs.rbegin(); it != legs.rend(); ++it) {
        steps.insert(steps.end(), (*it)->steps.begin(), (*it)->steps.end());
    }
    return steps;
}
