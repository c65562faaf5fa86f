// What menus ask and tell, passed on; see GameMenuHost.h.

#include "game/GameMenuHost.h"

#include "game/Game.h"
#include "game/HighScoreTable.h"
#include "game/LevelProgress.h"
#include "game/RunRecorder.h"
#include "menus/MenuHost.h"

namespace {

class Host : public MenuHost {
public:
    void RequestMap(const std::string& name) override { Game::RequestMap(name); }
    void RequestRestart() override { Game::RequestRestart(); }
    void RequestQuit() override { Game::RequestQuit(); }
    void MenusClosed() override { LevelProgress::SkipTime(); }
    void EnterScore(GuiScreen* background) override {
        // The score of a recorded run doesn't count.
        if (!RunRecorder::WasReplayed()) {
            HighScoreTable::Submit(LevelProgress::TotalScore(), background);
        }
    }
    std::string MusicName() const override { return Game::MusicName(); }
    LevelResult Result() const override {
        return {LevelProgress::WaterAtFinish(), LevelProgress::ElapsedMs(),
                LevelProgress::WaterScore(), LevelProgress::TimeScore(),
                LevelProgress::TotalScore()};
    }
    std::span<const HighScoreRow> HighScores() const override { return HighScoreTable::Rows(); }
};

}  // namespace

MenuHost& GameMenuHost() {
    static Host host;
    return host;
}
