#pragma once
// Copies of the running game as paused processes. The game's state lies in many modules, so a
// copy is a fork: it shares all memory until either side writes. A paused copy can be copied
// again, any number of times; each new copy plays one move and pauses.
//
// All copies are children of the process that made this object, whichever copy they are made from.
// They end with the object, and with that process, however it ends.

#include <sys/types.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "Playing.h"

class Copies {
public:
    /// A copy's number, below `capacity`.
    using Number = std::uint32_t;
    static constexpr Number none = 0xffffffff;
    /// Copies that may play at the same time.
    static constexpr std::uint32_t mostAtOnce = 64;

    /// Room for so many copies. `leastWater` as for Playing::Play.
    Copies(Number capacity, std::uint32_t leastWater);
    ~Copies();
    Copies(const Copies&) = delete;
    Copies& operator=(const Copies&) = delete;

    /// The first copy: of this process as it is now, flown in. None if that failed.
    Number StartFirst(HeadlessGame& game);
    /// Copies a paused copy and has the new one play. At most
    /// `mostAtOnce` play at a time. None without room or memory.
    Number Start(Number from, const Move& move);
    /// Waits until some copy has played its move, and gives its number; none after a second,
    /// or on a signal. A copy that died instead counts as lost water.
    Number Wait();
    const Outcome& Of(Number copy) const;
    /// Ends a paused copy.
    void Drop(Number copy);
    /// How many more copies there is room for.
    std::size_t Room() const { return unused.size() + ending.size(); }

private:
    struct Slot;
    struct Shared;

    /// The life of a copy; never returns.
    [[noreturn]] void Live(HeadlessGame& game, Number self);
    void PlayMove(HeadlessGame& game, Number self);
    void EndAll();
    bool Reap(int options);

    Number capacity = 0;
    std::uint32_t leastWater = 0;
    Shared* shared = nullptr;  ///< mapped memory, also of the copies
    Slot* slots = nullptr;
    std::vector<Number> unused;
    std::vector<Number> playing;
    std::vector<Number> died;                      ///< of these, those whose process ended
    std::vector<std::pair<pid_t, Number>> ending;  ///< dropped, and not gone yet
    int results[2] = {-1, -1};                     ///< a pipe: numbers of copies that have played
    pid_t owner = 0;
};
