#pragma once
// The running game: the loop that turns window messages, elapsed time and module steps into
// frames; start, restart and replacement of levels; the logical view; pause; the debug free
// camera. Drawing is in GameDraw.cpp and reached through the Presentation.

#include <cstdint>
#include <string>

#include "graphics/GLWindowEventListener.h"
#include "level/View.h"

struct RunStep;

class Game : public GLWindowEventListener {
public:
    void OnMouseMove(int x, int y) override;
    void OnMouseDown(int x, int y, int button) override;
    void OnMouseUp(int x, int y, int button) override;
    void OnKeyDown(int virtualKey) override;
    void OnKeyUp(int virtualKey) override;
    void OnClose() override;
    void OnFocusLost() override;

    /// Runs one whole game; returns at once if there is no window or a game runs already.
    static void Run(const std::string& mapName);
    /// The parts of Run, for programs that drive the frames themselves. The first Initialise also
    /// reads the surfaces' frictions.
    static void Initialise(const std::string& mapName);
    static void Frame();
    static void Shutdown();
    /// From the first Initialise to Shutdown.
    static bool IsUp();
    /// One module step with this input, of a time above 0, at once, whatever clock and keys say.
    static void Step(const RunStep& step);
    /// The next step of the run that is replayed, at once; false if there is none.
    static bool StepReplay();
    /// Module steps taken since the program started, and the seconds given to the last one.
    static std::uint32_t StepCount();
    static float LastStep();

    /// Served at the end of the frame.
    static void RequestMap(const std::string& name);
    static void RequestQuit();
    static void RequestRestart();

    /// The logical view in world units at zoom 1: 600 high or 800 wide, fitted to the window.
    static float ViewWidth();
    static float ViewHeight();
    /// What the camera shows now; steps and draws get it handed down.
    static View CurrentView();

    /// Name of the loaded level; empty without one.
    static const std::string& MapName();
    static std::string MusicName();
    /// Mean of the last full batch of 16 frame times, seconds.
    static float FrameTime();
    static bool IsPaused();
};
