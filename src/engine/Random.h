#pragma once
// Random numbers. Simulation, sound variation, camera shake and effects of one world all draw
// from one source, so the order of calls is part of a run's result. It is never seeded.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A source of random numbers; a copy goes on alike.
class RandomNumbers {
public:
    /// The next 32-bit word, which is also the new state.
    std::uint32_t Next();
    /// A float in 0..1, both ends possible.
    float Unit();
    /// What Unit makes of a word.
    static float ToUnit(std::uint32_t word);

    std::uint32_t state = 0;  ///< all that there is to it

private:
    static constexpr double factor = 32452843.11;
    static constexpr double offset = 275604541.11;
    static constexpr double inversePi = 0.31830987;
    static constexpr std::uint32_t unitMask = 0xFFFFFF;  ///< as many bits as a float holds exactly
};

// A multiplicative generator carried out in double precision; the 32 bits of a rounded float
// become the next state. Every step is exact in IEEE arithmetic, so all builds give the same
// sequence.
inline std::uint32_t RandomNumbers::Next() {
    // At most 2^32 times the factor: about 1.4e17, well within 64 bits.
    const double a = state * factor + offset;
    state = static_cast<std::uint32_t>(static_cast<std::int64_t>(a));
    const double b = state * factor + offset + state * inversePi;
    state = std::bit_cast<std::uint32_t>(static_cast<float>(b));
    return state;
}

inline float RandomNumbers::Unit() {
    return ToUnit(Next());
}

inline float RandomNumbers::ToUnit(std::uint32_t word) {
    // A product with the inverse rounds to the same float as the quotient for all 2^24 words, and
    // takes a fraction of its time.
    constexpr double inverseMost = 1.0 / 16777215.0;
    return static_cast<float>((word & unitMask) * inverseMost);
}

/// Draws numbers before they are wanted: a draw is one long chain of operations, and so it runs
/// beside other work instead of in its way. To whoever else draws, it looks as if each number were
/// drawn when it is taken; nobody else may draw while one of these lives.
class RandomAhead {
public:
    /// `kept` is storage for the words, which lasts from one of these to the next.
    RandomAhead(RandomNumbers& source, std::vector<std::uint32_t>& kept)
        : random(source), front(source), words(kept) {}
    /// Draws so many more.
    void Prepare(std::size_t count) {
        if (words.size() < drawn + count) {
            words.resize(2 * (drawn + count));
        }
        for (std::size_t i = 0; i < count; ++i) {
            words[drawn++] = front.Next();
        }
    }
    std::uint32_t Next() {
        if (taken == drawn) {
            Prepare(1);
        }
        random.state = words[taken++];
        return random.state;
    }
    float Unit() { return RandomNumbers::ToUnit(Next()); }

private:
    RandomNumbers& random;
    RandomNumbers front;
    std::vector<std::uint32_t>& words;
    std::size_t drawn = 0;
    std::size_t taken = 0;
};

/// The source of the world in play.
namespace Random {

extern RandomNumbers current;
/// 0 at the start of the program.
inline std::uint32_t& state = current.state;

inline std::uint32_t Next() {
    return current.Next();
}
inline float Unit() {
    return current.Unit();
}

}  // namespace Random
