// Forking, pausing and ending of copies; see Copies.h.

#include "Copies.h"

#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <semaphore.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <new>

struct Copies::Slot {
    sem_t wake;                             ///< posted once for each copy to be made from here
    std::atomic<pid_t> pid;                 ///< 0: none, or not yet known
    std::atomic<int> failed;                ///< the copy couldn't be made
    std::array<Number, mostAtOnce> orders;  ///< a ring: numbers of the copies to be made
    std::uint32_t ordered;                  ///< written by the owner
    std::uint32_t made;                     ///< written by this copy
    Move move;                              ///< what this copy plays first
    Outcome outcome;
};

struct Copies::Shared {
    std::atomic<int> closing;  ///< no copy goes on living
};

namespace {

/// Address space is reserved, memory comes with use.
void* MapShared(std::size_t size) {
    void* const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return memory == MAP_FAILED ? nullptr : memory;
}

/// As fork, but the new process is a child of `owner` even where a copy makes it. Nothing here
/// has threads, so that there is nothing to lock.
pid_t ForkForOwner(pid_t owner) {
    const unsigned long flags =
        SIGCHLD | (getpid() == owner ? 0ul : static_cast<unsigned long>(CLONE_PARENT));
    return static_cast<pid_t>(syscall(SYS_clone, flags, nullptr, nullptr, nullptr, nullptr));
}

/// The terminal's interrupt goes to all processes; what it means is the owner's business.
void LeaveSignalsToOwner(pid_t owner) {
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGTERM, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != owner) {
        _exit(0);  // it ended before the line above took effect
    }
}

}  // namespace

Copies::Copies(Number capacityWanted, std::uint32_t least) : leastWater(least), owner(getpid()) {
    shared = static_cast<Shared*>(MapShared(sizeof(Shared)));
    slots = static_cast<Slot*>(MapShared(sizeof(Slot) * capacityWanted));
    if (shared == nullptr || slots == nullptr || pipe2(results, O_CLOEXEC) != 0) {
        return;
    }
    new (shared) Shared{};
    capacity = capacityWanted;
    for (Number i = capacity; i-- > 0;) {
        unused.push_back(i);
    }
}

Copies::~Copies() {
    EndAll();
    close(results[0]);
    close(results[1]);
    if (slots != nullptr) {
        munmap(slots, sizeof(Slot) * capacity);
    }
    if (shared != nullptr) {
        munmap(shared, sizeof(Shared));
    }
}

void Copies::PlayMove(HeadlessGame& game, Number self) {
    Playing::Play(game, slots[self].move, leastWater, slots[self].outcome);
}

void Copies::Live(HeadlessGame& game, Number self) {
    for (;;) {
        const ssize_t written = write(results[1], &self, sizeof(self));
        if (written != sizeof(self)) {
            _exit(1);
        }
        pid_t copy = 1;
        while (copy != 0) {
            while (sem_wait(&slots[self].wake) != 0) {
            }
            Slot& own = slots[self];
            const Number next = own.orders[own.made++ % mostAtOnce];
            copy = shared->closing != 0 ? -1 : ForkForOwner(owner);
            if (copy < 0) {
                slots[next].failed = 1;
                static_cast<void>(write(results[1], &next, sizeof(next)) == 0);
            } else if (copy == 0) {
                self = next;
            }
        }
        slots[self].pid = getpid();
        LeaveSignalsToOwner(owner);
        if (shared->closing != 0) {
            _exit(0);
        }
        PlayMove(game, self);
    }
}

Copies::Number Copies::StartFirst(HeadlessGame& game) {
    if (unused.empty()) {
        return none;
    }
    const Number first = unused.back();
    Slot& slot = *new (&slots[first]) Slot{};
    sem_init(&slot.wake, 1, 0);
    const pid_t pid = ForkForOwner(owner);
    if (pid < 0) {
        return none;
    }
    if (pid == 0) {
        slot.pid = getpid();
        LeaveSignalsToOwner(owner);
        slot.failed = Playing::FlyIn(game, slot.outcome) ? 0 : 1;
        Live(game, first);
    }
    slot.pid = pid;
    unused.pop_back();
    playing.push_back(first);
    while (Wait() != first) {
    }
    if (slot.outcome.lost) {
        Drop(first);
        return none;
    }
    return first;
}

Copies::Number Copies::Start(Number from, const Move& move) {
    while (unused.empty() && !ending.empty() && Reap(0)) {
    }
    if (unused.empty()) {
        return none;
    }
    const Number number = unused.back();
    unused.pop_back();
    playing.push_back(number);
    Slot& slot = *new (&slots[number]) Slot{};
    sem_init(&slot.wake, 1, 0);
    slot.move = move;
    Slot& origin = slots[from];
    origin.orders[origin.ordered++ % mostAtOnce] = number;
    sem_post(&origin.wake);
    return number;
}

/// Takes away a process that has ended; false if there is none. A killed process may still wait
/// for its slot's wake, and would take it from the next one there: so slots are free only then.
bool Copies::Reap(int options) {
    const pid_t ended = waitpid(-1, nullptr, options);
    if (ended <= 0) {
        return false;
    }
    const auto dropped = std::ranges::find(ending, ended, &std::pair<pid_t, Number>::first);
    if (dropped != ending.end()) {
        sem_destroy(&slots[dropped->second].wake);
        unused.push_back(dropped->second);
        ending.erase(dropped);
        return true;
    }
    for (const Number number : playing) {
        if (slots[number].pid == ended) {
            slots[number].pid = 0;
            slots[number].failed = 1;
            died.push_back(number);
        }
    }
    return true;
}

Copies::Number Copies::Wait() {
    pollfd ready{results[0], POLLIN, 0};
    Number number = none;
    const int count = poll(&ready, 1, 1000);
    if (count < 0 || (count > 0 && read(results[0], &number, sizeof(number)) !=
                                       static_cast<ssize_t>(sizeof(number)))) {
        return none;
    }
    while (Reap(WNOHANG)) {
    }
    if (number == none && !died.empty()) {
        number = died.back();
    }
    if (number != none) {
        std::erase(died, number);
        std::erase(playing, number);
        slots[number].outcome.lost = slots[number].outcome.lost || slots[number].failed != 0;
    }
    return number;
}

const Outcome& Copies::Of(Number copy) const {
    return slots[copy].outcome;
}

void Copies::Drop(Number copy) {
    const pid_t pid = slots[copy].pid;
    if (pid == 0) {  // it has died
        sem_destroy(&slots[copy].wake);
        unused.push_back(copy);
        return;
    }
    kill(pid, SIGKILL);  // it sleeps and does nothing more
    slots[copy].pid = 0;
    ending.emplace_back(pid, copy);
}

/// A copy that is being made has no known process yet: it sees `closing`, or is found in the
/// next round.
void Copies::EndAll() {
    if (capacity == 0) {
        return;
    }
    shared->closing = 1;
    for (;;) {
        // All at once, then together: a process takes its time to go.
        for (Number i = 0; i < capacity; ++i) {
            if (const pid_t pid = slots[i].pid; pid != 0) {
                kill(pid, SIGKILL);
                slots[i].pid = 0;
            }
        }
        pid_t ended = 0;
        while ((ended = waitpid(-1, nullptr, WNOHANG)) > 0) {
        }
        if (ended < 0 && errno == ECHILD) {
            return;
        }
        usleep(1000);
    }
}
