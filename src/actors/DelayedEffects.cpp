#include "actors/DelayedEffects.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

#include "actors/TriggerEffects.h"
#include "engine/Console.h"
#include "level/Limits.h"
#include "platform/Assert.h"

namespace {

/// Whether steps of up to a second leave the delay as it is, in floats.
bool IsForEver(float delay) {
    return delay - 1.0f == delay;
}

}  // namespace

void DelayedEffects::TakeDue(Line& line) {
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

void DelayedEffects::Run(float dt, TriggerEvents& events) {
    ++step;
    if (waiting == 0) {
        return;
    }
    due.clear();
    for (auto& [delay, line] : lines) {
        for (float& timeLeft : line.timeLeft.All()) {
            timeLeft -= dt;
        }
        TakeDue(line);
    }
    waiting -= due.size();
    std::ranges::sort(due, {}, [](const Due& d) { return std::tuple(d.step, d.firing.order); });
    for (const Due& d : due) {
        for (std::uint32_t i = 0; i < d.firing.times; ++i) {
            d.firing.trigger->effect({*d.firing.trigger, {}, d.dt, events});
        }
    }
}

void DelayedEffects::Add(std::span<const Firing> fired, float dt) {
    VANTREL_ASSERT(std::ranges::is_sorted(fired, {}, &Firing::order));
    for (const Firing& firing : fired) {
        const float delay = firing.trigger->delay;
        if (IsForEver(delay)) {
            continue;
        }
        if (waiting == Limits::waitingEffects) {
            if (!hasComplained) {
                Console::Print(
                    "\nToo many delayed effects of triggers wait, more are dropped. The most is ");
                Console::PrintUnsigned(static_cast<std::uint32_t>(Limits::waitingEffects));
                Console::Print(".");
            }
            hasComplained = true;
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
}

void DelayedEffects::Clear() {
    lines.clear();
    waiting = 0;
    hasComplained = false;
}

void DelayedEffects::AddTo(StateFold& fold, const std::deque<Trigger>& triggers) const {
    std::unordered_map<const Trigger*, std::size_t> numbers;
    for (const Trigger& trigger : triggers) {
        numbers.emplace(&trigger, numbers.size());
    }
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
            fold.Add(numbers.at(trigger), order, times);
        }
    }
}
