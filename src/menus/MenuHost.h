#pragma once
// What the menus need of the game that shows them: they tell it what the player chose, and ask
// it what to show. The game, which lies above the menus, sets the host.

#include <cstdint>
#include <span>
#include <string>

#include "engine/FullBody.h"
#include "menus/HighScoreRow.h"

class GuiScreen;

/// What a finished level was worth.
struct LevelResult {
    std::uint32_t waterAtFinish = 0;  ///< particles
    std::uint32_t elapsedMs = 0;
    std::uint32_t waterScore = 0;
    std::uint32_t timeScore = 0;
    std::uint32_t totalScore = 0;

    /// Of a full body of water; may pass 1.
    float WaterShare() const {
        return static_cast<float>(waterAtFinish) / static_cast<float>(fullBody);
    }
};

class MenuHost {
public:
    virtual ~MenuHost() = default;

    // Served by the game when its frame is over.

    virtual void RequestMap(const std::string& /*name*/) {}
    virtual void RequestRestart() {}
    virtual void RequestQuit() {}

    /// The last menu closed: the time in menus doesn't count as time played.
    virtual void MenusClosed() {}
    /// Lets the player type a name over `background` if the result ranks; returns when he has.
    virtual void EnterScore(GuiScreen* /*background*/) {}

    /// Of the level that is played.
    virtual std::string MusicName() const { return {}; }
    virtual LevelResult Result() const { return {}; }
    /// Best first.
    virtual std::span<const HighScoreRow> HighScores() const { return {}; }

    /// The host in force; one that does nothing unless one was set.
    static MenuHost& Current();
    /// Sets the host, not owned; null goes back to the one that does nothing.
    static void Use(MenuHost* host);
};
