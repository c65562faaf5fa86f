// The whole program from its start to its main menu, with an empty opening film, as a player's
// eyes would time it: by what the screen shows. Needs a display that nothing else draws on
// (tools/setup/with_display.sh).

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/Places.h"
#include "support/TemporaryDirectory.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using Pixels = std::vector<unsigned long>;

class Screen {
public:
    Screen() : display(XOpenDisplay(nullptr)) {
        if (display != nullptr) {
            // Over no button, which would light up.
            XWarpPointer(display, None, DefaultRootWindow(display), 0, 0, 0, 0, 0, 0);
        }
    }
    ~Screen() {
        if (display != nullptr) {
            XCloseDisplay(display);
        }
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    bool IsOpen() const { return display != nullptr; }

    /// A narrow strip in the screen's middle: where the menu has its buttons.
    Pixels Middle() const {
        constexpr int width = 40;
        constexpr int height = 200;
        const int number = DefaultScreen(display);
        XImage* const image = XGetImage(
            display, RootWindow(display, number), (DisplayWidth(display, number) - width) / 2,
            (DisplayHeight(display, number) - height) / 2, width, height, 0xFFFFFF, ZPixmap);
        Pixels pixels;
        for (int i = 0; image != nullptr && i < width * height; ++i) {
            pixels.push_back(XGetPixel(image, i % width, i / width));
        }
        if (image != nullptr) {
            XDestroyImage(image);
        }
        return pixels;
    }

private:
    Display* display;
};

/// The program in a home of its own.
class Program {
public:
    explicit Program(const std::filesystem::path& home) : process(fork()) {
        if (process == 0) {
            Become(home);
        }
    }
    ~Program() {
        kill(process, SIGTERM);
        waitpid(process, nullptr, 0);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Seconds that all its threads have taken so far; steadier than time where others work, too.
    double ProcessorTime() const {
        std::ifstream file("/proc/" + std::to_string(process) + "/stat");
        std::string word;
        double tics = 0.0;
        for (int field = 1; field <= 15 && file >> word; ++field) {
            tics += field >= 14 ? std::stod(word) : 0.0;
        }
        return tics / static_cast<double>(sysconf(_SC_CLK_TCK));
    }

private:
    [[noreturn]] static void Become(const std::filesystem::path& home) {
        setenv("HOME", home.c_str(), 1);
        setenv("XDG_CONFIG_HOME", home.c_str(), 1);
        setenv("VANTREL_DATA", (SourceDirectory() / "data").c_str(), 1);
        const int nowhere = open("/dev/null", O_WRONLY);
        if (chdir(home.c_str()) == 0 && dup2(nowhere, STDERR_FILENO) >= 0) {
            const std::filesystem::path program = BuildDirectory() / "src/game/vantrel";
            execl(program.c_str(), program.c_str(), "-FULLSCREEN", "0", "-RESOLUTION", "800", "600",
                  nullptr);
        }
        _exit(127);
    }
    pid_t process;
};

bool WaitFor(const std::function<bool()>& condition) {
    const auto end = Clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        if (Clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(milliseconds(5));
    }
    return true;
}

/// What the menu looks like once it stands, as its buttons move; nothing if the level never comes.
std::vector<Pixels> LookAtMenu(const Screen& screen, const TemporaryDirectory& home) {
    const Program program(home.path);
    const bool loaded = WaitFor([&] {
        std::ifstream log(home.path / "ConsoleLog.txt");
        const std::string text(std::istreambuf_iterator<char>(log), {});
        return text.find("Game initialisation") != std::string::npos;
    });
    std::this_thread::sleep_for(std::chrono::seconds(3));
    std::vector<Pixels> looks;
    for (int i = 0; loaded && i < 60; ++i) {
        Pixels look = screen.Middle();
        if (std::find(looks.begin(), looks.end(), look) == looks.end()) {
            looks.push_back(std::move(look));
        }
        std::this_thread::sleep_for(milliseconds(25));
    }
    return looks;
}

/// Nearly everywhere the same: a thing or two may move behind the menu.
bool LooksLike(const Pixels& seen, const std::vector<Pixels>& looks) {
    return std::any_of(looks.begin(), looks.end(), [&](const Pixels& expected) {
        std::size_t same = 0;
        for (std::size_t i = 0; i < seen.size() && i < expected.size(); ++i) {
            same += seen[i] == expected[i] ? 1 : 0;
        }
        return same * 10 >= expected.size() * 9;
    });
}

void StartToMainMenu(benchmark::State& state) {
    const Screen screen;
    const TemporaryDirectory home;
    home.Write("vid/intro.avi", "");
    home.Write("cfg/console.cfg", "enableLogging true\n");
    const std::vector<Pixels> menu =
        screen.IsOpen() ? LookAtMenu(screen, home) : std::vector<Pixels>();
    if (menu.empty()) {
        state.SkipWithError("there is no display, or no menu on it");
        return;
    }
    double processorTime = 0.0;
    for (auto _ : state) {
        // The window of the run before may take a moment to go.
        bool seen = WaitFor([&] { return !LooksLike(screen.Middle(), menu); });
        const auto begin = Clock::now();
        const Program program(home.path);
        seen = seen && WaitFor([&] { return LooksLike(screen.Middle(), menu); });
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - begin).count());
        processorTime += program.ProcessorTime();
        if (!seen) {
            state.SkipWithError("the menu doesn't come");
            break;
        }
    }
    state.counters["processor_ms"] =
        benchmark::Counter(processorTime * 1000.0, benchmark::Counter::kAvgIterations);
}
BENCHMARK(StartToMainMenu)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
