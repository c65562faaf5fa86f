// Frames of the shipped levels on a real window: milliseconds and GL calls. Needs a display;
// on the software renderer run it through tools/setup/with_display.sh.

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <ctime>

#include "RecordedRuns.h"
#include "actors/Camera.h"
#include "game/GameScreen.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDisplay.h"
#include "platform/Clock.h"
#include "platform/DataRoot.h"
#include "platform/GlfwWindow.h"
#include "support/Places.h"
#include "water/ParticleManager.h"

namespace {

std::size_t glCalls = 0;

/// The driver's own function of that name.
template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// The calls that a frame's cost hangs on are counted on their way to the driver.

extern "C" void glDrawArrays(GLenum mode, GLint first, GLsizei count) {
    static const auto real = Real<void(GLenum, GLint, GLsizei)>("glDrawArrays");
    ++glCalls;
    real(mode, first, count);
}

extern "C" void glCallList(GLuint list) {
    static const auto real = Real<void(GLuint)>("glCallList");
    ++glCalls;
    real(list);
}

extern "C" void glBindTexture(GLenum target, GLuint texture) {
    static const auto real = Real<void(GLenum, GLuint)>("glBindTexture");
    ++glCalls;
    real(target, texture);
}

extern "C" void glBegin(GLenum mode) {
    static const auto real = Real<void(GLenum)>("glBegin");
    ++glCalls;
    real(mode);
}

namespace {

/// The game up to its first level.
class RunningGame {
public:
    RunningGame() {
        Platform::UseDataRoot(SourceDirectory() / "data");
        GLWindow::SetVsync(false);
        Game::Initialise("lev\\testLevel.swah");
        MenuManager::Show(MenuManager::None);
        Camera::position = {400.0f, 350.0f};
    }

private:
    Platform::GlfwWindow window;
    GameScreen screen;
    Services services{{.window = &window,
                       .screen = screen.Parts(),
                       .title = "DrawBench",
                       .width = 1280,
                       .height = 720}};
};

RunningGame& TheGame() {
    static RunningGame game;
    return game;
}

void DrawFrame() {
    Presentation::Current().DrawFrame();
    glFinish();
}

void CountCalls(benchmark::State& state) {
    state.counters["glCalls"] =
        static_cast<double>(glCalls) / static_cast<double>(state.iterations());
}

void FrameOfTheFirstLevel(benchmark::State& state) {
    TheGame();
    ParticleManager::ClearAll();
    ParticleManager::CreateParticles(400.0f, 250.0f, 60.0f,
                                     static_cast<std::uint32_t>(state.range(0)));
    glCalls = 0;
    for (auto _ : state) {
        DrawFrame();
    }
    CountCalls(state);
}
BENCHMARK(FrameOfTheFirstLevel)->Arg(128)->Arg(4096)->Unit(benchmark::kMillisecond);

constexpr int framesOfRun = 120;

/// Of all threads, the software renderer's too: what other programs take doesn't count.
double ProcessorMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

/// How often the frame's drawing fills the whole window.
double ScreensFilled() {
    GLuint query = 0;
    GLuint pixels = 0;
    glGenQueries(1, &query);
    glBeginQuery(GL_SAMPLES_PASSED, query);
    Presentation::Current().DrawFrame();
    glEndQuery(GL_SAMPLES_PASSED);
    glGetQueryObjectuiv(query, GL_QUERY_RESULT, &pixels);
    glDeleteQueries(1, &query);
    return static_cast<double>(pixels) /
           (static_cast<double>(GLWindow::ClientWidth()) * GLWindow::ClientHeight());
}

/// The window manager may take its time.
void ResizeWindow(int width, int height) {
    GLWindow::SetClientSize(width, height);
    for (int i = 0; i < 1000 && GLWindow::ClientWidth() != width; ++i) {
        GLWindow::PumpMessages();
        Platform::TheClock().Sleep(1);
    }
}

/// Frames spread over the whole of a run, in a window of the size that the arguments give.
void FramesOfRun(benchmark::State& state, const std::string& file) {
    TheGame();
    ResizeWindow(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    // The view of the window's own shape.
    const float shape = static_cast<float>(state.range(0)) / static_cast<float>(state.range(1));
    if (!RecordedRuns::Begin(file, 600.0f * shape, 600.0f)) {
        state.SkipWithError("the run can't be played");
    }
    const std::size_t stride = RunRecorder::Current().steps.size() / framesOfRun;
    double processor = 0.0;
    double screens = 0.0;
    std::size_t calls = 0;
    for (auto _ : state) {
        state.PauseTiming();
        for (std::size_t i = 0; i < stride && Game::StepReplay(); ++i) {
        }
        screens += ScreensFilled();
        glCalls = 0;
        state.ResumeTiming();
        processor -= ProcessorMilliseconds();
        DrawFrame();
        processor += ProcessorMilliseconds();
        calls += glCalls;
    }
    state.counters["glCalls"] = static_cast<double>(calls) / framesOfRun;
    state.counters["processorMs"] = processor / framesOfRun;
    state.counters["screensFilled"] = screens / framesOfRun;
}

const bool registered = [] {
    for (const std::string& file : RecordedRuns::Files()) {
        benchmark::RegisterBenchmark(("FramesOfRun/" + RecordedRuns::LevelName(file)).c_str(),
                                     [file](benchmark::State& state) { FramesOfRun(state, file); })
            ->Args({800, 600})
            ->Args({1280, 720})
            ->Iterations(framesOfRun)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
    return true;
}();

}  // namespace
