#include "actors/DelayedEffects.h"

#include <algorithm>
#include <tuple>

#include "level/Limits.h"

namespace {

/// Whether steps of up to a second leave the delay as it is, in floats.
bool IsForEver(float delay) {
    return delay - 1.0f == delay;
}

}  // namespace

void DelayedEffects::TakeDue(Line& line, std::vector<Due>& due) {
    while (!line.timeLeft.IsEmpty() && line.timeLeft.Front() <= 0.0f) {
        const Batch batch = line.batches.Front();
        for (std::uint32_t i = 0; i < batch.size; ++i) {
            due.push_back({batch.step, batch.dt, line.firings.Front()});
            line.firings.Pop();
        }
        line.timeLeft.Pop();
        line.batches.Pop();
    }
}

void DelayedEffects::Age(float dt, std::vector<Due>& due) {
    due.clear();
    ++step;
    if (waiting == 0) {
        return;
    }
    for (auto& [delay, line] : lines) {
        for (float& timeLeft : line.timeLeft.All()) {
            timeLeft -= dt;
        }
        TakeDue(line, due);
    }
    waiting -= due.size();
    std::ranges::sort(due, {}, [](const Due& d) { return std::tuple(d.step, d.firing.order); });
}

void DelayedEffects::Add(const Firing& firing, float delay, float dt) {
    if (IsForEver(delay)) {
        return;
    }
    if (waiting == Limits::waitingEffects) {
        hasDropped = true;
        return;
    }
    Line& line = lines[delay];
    if (line.batches.IsEmpty() || line.batches.Back().step != step) {
        line.batches.Push({step, dt, 0});
        line.timeLeft.Push(delay);
    }
    ++line.batches.Back().size;
    line.firings.Push(firing);
    ++waiting;
}

void DelayedEffects::Clear() {
    lines.clear();
    waiting = 0;
    hasDropped = false;
}

void DelayedEffects::AddTo(StateFold& fold) const {
    fold.Add(waiting, lines.size());
    for (const auto& [delay, line] : lines) {
        fold.Add(delay, line.batches.All().size());
        for (const float timeLeft : line.timeLeft.All()) {
            fold.Add(timeLeft);
        }
        for (const auto& [since, dt, size] : line.batches.All()) {
            // Steps count on from level to level: what matters is how long ago it was.
            fold.Add(step - since, dt, size);
        }
        for (const auto& [trigger, order, times] : line.firings.All()) {
            fold.Add(trigger, order, times);
        }
    }
}
