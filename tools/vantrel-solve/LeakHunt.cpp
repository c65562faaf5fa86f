// Lives that tilt and watch; see LeakHunt.h.

#include "LeakHunt.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

#include "Dice.h"
#include "Interrupt.h"
#include "LeakSpace.h"
#include "Path.h"
#include "ProgressLine.h"
#include "SearchSetup.h"
#include "Worlds.h"

namespace {

/// Seconds of tilting in a life: long enough for a level's movers to come by many times.
constexpr double lifeSeconds = 120.0;
/// Leaks this close are one place, world units.
constexpr float onePlace = 40.0f;
/// Lives that are played side by side.
constexpr std::size_t abreast = 16;
constexpr float fullTilt = SearchSetup::angles.back();
/// Milliseconds of a frame: a quick machine's, and one's that just keeps up, where drops and
/// platforms go furthest in a step.
constexpr std::array<std::uint32_t, 2> frameLengths{16, 33};

enum class Style { Sweeping, Random, Full, Count };

struct Life {
    std::size_t seed = 0;  ///< index of its count
    std::uint32_t number = 0;
    Dice dice{0};
    Style style = Style::Random;
    std::uint32_t frameMs = 16;
    std::uint32_t scriptFrames = 0;  ///< still to follow
    std::uint32_t step = 0;          ///< of the script
    float angle = 0.0f;              ///< of a sweep
    float sweep = 4.0f;              ///< degrees a move
    double secondsLeft = lifeSeconds;
    Worlds::Number world = Worlds::none;  ///< none: the first
    Path path;
};

class Hunter {
public:
    Hunter(const SearchSettings& chosen, PlayRules rules, std::uint32_t seeds, LeakResult& into)
        : settings(chosen),
          worlds(std::move(rules), chosen.room, chosen.jobs),
          first(worlds.StartFirst()),
          result(into),
          line(chosen.seconds * seeds) {
        for (std::uint32_t i = 0; i < seeds; ++i) {
            result.seeds.push_back({.seed = settings.seed + i});
        }
    }
    bool IsReady() const { return first != Worlds::none; }
    void Run();

private:
    bool PlanLife();
    void BeginLife(std::size_t ofSeed, double seconds);
    Move NextMove(Life& life);
    /// False when the life is over.
    bool Take(Life& life, const Move& move, Worlds::Number world);
    /// `steps` lead there, `seen` of them until the leak was seen.
    void Note(const Life& life, const Leak& leak, const std::vector<RunStep>& steps,
              std::size_t seen);
    void ShowProgress();

    const SearchSettings& settings;
    Worlds worlds;
    const Worlds::Number first;
    LeakResult& result;
    ProgressLine line;
    std::vector<Life> lives;
    std::size_t seed = 0;  ///< of the next life
    double planned = 0.0;  ///< seconds of that seed
};

double SecondsOf(const std::vector<RunStep>& steps, std::size_t count) {
    double seconds = 0.0;
    for (std::size_t i = 0; i < std::min(count, steps.size()); ++i) {
        seconds += double{steps[i].dt};
    }
    return seconds;
}

/// The next life of the seed whose turn it is; false after the last.
bool Hunter::PlanLife() {
    if (planned >= settings.seconds) {
        ++seed;
        planned = 0.0;
    }
    if (seed == result.seeds.size()) {
        return false;
    }
    const double seconds = std::min(lifeSeconds, settings.seconds - planned);
    planned += seconds;
    BeginLife(seed, seconds);
    return true;
}

void Hunter::BeginLife(std::size_t ofSeed, double seconds) {
    LeakCount& count = result.seeds[ofSeed];
    Life life;
    life.seed = ofSeed;
    life.number = count.lives++;
    life.dice = Dice(count.seed * 100003u + life.number);
    life.style = static_cast<Style>(life.number % static_cast<std::uint32_t>(Style::Count));
    life.frameMs = frameLengths[life.dice.Below(frameLengths.size())];
    life.sweep = static_cast<float>(1u << life.dice.Below(5));
    life.step = static_cast<std::uint32_t>(worlds.Of(first).steps.size());
    life.secondsLeft = seconds;
    const auto length = static_cast<std::uint32_t>(worlds.Rules().script.size());
    if (length > life.step && life.dice.Below(4) != 0) {
        life.scriptFrames = life.dice.Below(length - life.step);
    }
    life.path = Extend(nullptr, worlds.Of(first));
    lives.push_back(std::move(life));
}

Move Hunter::NextMove(Life& life) {
    constexpr std::uint32_t mostFrames = 500;
    Move move;
    if (life.scriptFrames > 0) {
        move.scriptStep = life.step;
        move.frames = std::min(life.scriptFrames, mostFrames);
        life.scriptFrames -= move.frames;
        life.step += move.frames;
        return move;
    }
    std::uint32_t ms = 16 * SearchSetup::lengths[life.dice.Below(SearchSetup::lengths.size())];
    if (life.style == Style::Sweeping) {
        // To and fro, with a rest at each end.
        life.angle += life.sweep;
        ms = 100 + life.dice.Below(300);
        if (std::fabs(life.angle) > fullTilt) {
            life.angle = std::clamp(life.angle, -fullTilt, fullTilt);
            life.sweep = -life.sweep;
            ms = 2000 + life.dice.Below(8000);
        }
        move.angle = life.angle;
    } else if (life.style == Style::Full && life.dice.Below(3) != 0) {
        move.angle = life.dice.Below(2) == 0 ? fullTilt : -fullTilt;
        ms = 1000 + life.dice.Below(7000);
    } else {
        move.angle = SearchSetup::angles[life.dice.Below(SearchSetup::angles.size())];
    }
    move.frameMs = life.frameMs;
    move.frames = std::clamp(ms / life.frameMs, 1u, mostFrames);
    return move;
}

void Hunter::Note(const Life& life, const Leak& leak, const std::vector<RunStep>& steps,
                  std::size_t seen) {
    LeakCount& count = result.seeds[life.seed];
    count.drops += leak.drops;
    const auto isNear = [&](const LeakPlace& place) {
        return Distance(place.at, leak.from) < onePlace;
    };
    auto place = std::ranges::find_if(result.places, isNear);
    if (place == result.places.end()) {
        const double second = SecondsOf(steps, seen);
        place = result.places.insert(place, {leak.from, 0, count.seed, life.number, second});
        result.runs.push_back(worlds.Rules().start);
        result.runs.back().steps = steps;
    }
    place->drops += leak.drops;
}

bool Hunter::Take(Life& life, const Move& move, Worlds::Number world) {
    const Outcome& outcome = worlds.Of(world);
    LeakCount& count = result.seeds[life.seed];
    life.path = Extend(std::move(life.path), outcome);
    if (move.scriptStep == Move::none) {
        const double seconds = outcome.watchedSteps * move.frameMs * 0.001;
        count.seconds += seconds;
        life.secondsLeft -= seconds;
    }
    count.wins += outcome.finished ? 1 : 0;
    count.losses += outcome.cameBack ? 1 : 0;
    if (!outcome.leaks.empty()) {
        const std::vector<RunStep> steps = StepsOf(life.path);
        for (const Leak& leak : outcome.leaks) {
            Note(life, leak, steps, steps.size() - outcome.steps.size() + leak.steps);
        }
    }
    if (outcome.Alive() == 0) {  // no more water will come
        life.secondsLeft = 0.0;
    }
    return !outcome.finished && life.secondsLeft > 0.0;
}

void Hunter::ShowProgress() {
    double seconds = 0.0;
    std::uint32_t drops = 0;
    for (const LeakCount& count : result.seeds) {
        seconds += count.seconds;
        drops += count.drops;
    }
    line.Show(std::to_string(static_cast<int>(seconds / 60.0)) + " minutes of play, " +
              std::to_string(drops) + " drops leaked");
}

void Hunter::Run() {
    const InterruptEndsSearch guard;
    std::vector<Worlds::PlannedMove> moves;
    while (!IsInterrupted()) {
        while (lives.size() < abreast && PlanLife()) {
        }
        if (lives.empty()) {
            break;
        }
        moves.clear();
        for (Life& life : lives) {
            moves.push_back({life.world == Worlds::none ? first : life.world, NextMove(life)});
        }
        worlds.Play(moves);
        std::vector<Life> played = std::exchange(lives, {});
        for (std::size_t i = 0; i < played.size(); ++i) {
            Life& life = played[i];
            if (life.world != Worlds::none) {
                worlds.Drop(life.world);
            }
            life.world = moves[i].world;
            if (life.world == Worlds::none) {
                continue;  // an interrupt
            }
            if (Take(life, moves[i].move, life.world)) {
                lives.push_back(std::move(life));
                continue;
            }
            worlds.Drop(life.world);
            if (life.secondsLeft > 0.0) {
                BeginLife(life.seed, life.secondsLeft);
            }
        }
        ShowProgress();
    }
}

}  // namespace

LeakResult HuntLeaks(const SearchSettings& settings, std::uint32_t seeds,
                     std::vector<RunStep> script) {
    LeakResult result;
    HeadlessGame game(settings.windowWidth, settings.windowHeight);
    PlayRules rules{.script = std::move(script)};
    result.failure = Playing::Begin(game, settings.level, rules.start);
    if (!result.failure.empty()) {
        return result;
    }
    const LeakSpace space;
    rules.leakSpace = &space;
    Hunter hunter(settings, std::move(rules), seeds, result);
    if (hunter.IsReady()) {
        hunter.Run();
    } else {
        result.failure = SearchSetup::NoFlight(settings.level);
    }
    return result;
}

std::string Text(const LeakResult& result) {
    char text[200];
    std::string report;
    std::uint32_t drops = 0;
    for (const LeakCount& count : result.seeds) {
        std::snprintf(text, sizeof text,
                      "seed %u: %.1f minutes of play in %u lives, %u won, all water lost %u "
                      "times: %u drops leaked\n",
                      count.seed, count.seconds / 60.0, count.lives, count.wins, count.losses,
                      count.drops);
        report += text;
        drops += count.drops;
    }
    for (const LeakPlace& place : result.places) {
        std::snprintf(
            text, sizeof text,
            "leak near (%.0f, %.0f): %u drops, first after %.1f s of life %u of seed %u\n",
            double{place.at.x}, double{place.at.y}, place.drops, place.second, place.life,
            place.seed);
        report += text;
    }
    return report + "drops leaked: " + std::to_string(drops) + "\n";
}
