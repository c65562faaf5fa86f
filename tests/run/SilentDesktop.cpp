// A window manager that promises much and answers little, for the display that it runs on: it
// says that it tells frame sizes beforehand and never does, maps a window late or not at all,
// and keeps changing properties of every window. A close from a task bar it does pass on.
//
//     silent_desktop MILLISECONDS     until a window is mapped; below 0: never

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <thread>
#include <vector>

namespace {

using SteadyClock = std::chrono::steady_clock;

Display* display = nullptr;

Atom AtomOf(const char* name) {
    return XInternAtom(display, name, False);
}

void SetProperties(Window window, const char* name, Atom type,
                   const std::vector<unsigned long>& values) {
    XChangeProperty(display, window, AtomOf(name), type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(values.data()),
                    static_cast<int>(values.size()));
}

void Promise() {
    const Window root = DefaultRootWindow(display);
    const Window check = XCreateSimpleWindow(display, root, -10, -10, 1, 1, 0, 0, 0);
    SetProperties(root, "_NET_SUPPORTED", XA_ATOM,
                  {AtomOf("_NET_FRAME_EXTENTS"), AtomOf("_NET_REQUEST_FRAME_EXTENTS")});
    SetProperties(check, "_NET_SUPPORTING_WM_CHECK", XA_WINDOW, {check});
    SetProperties(root, "_NET_SUPPORTING_WM_CHECK", XA_WINDOW, {check});
    XSelectInput(display, root, SubstructureRedirectMask | SubstructureNotifyMask);
}

void Configure(const XConfigureRequestEvent& request) {
    XWindowChanges changes{
        request.x,     request.y,     request.width, request.height, request.border_width,
        request.above, request.detail};
    XConfigureWindow(display, request.window, static_cast<unsigned>(request.value_mask), &changes);
}

void PassCloseOn(const XClientMessageEvent& message) {
    if (message.message_type != AtomOf("_NET_CLOSE_WINDOW")) {
        return;
    }
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = message.window;
    event.xclient.format = 32;
    event.xclient.message_type = AtomOf("WM_PROTOCOLS");
    event.xclient.data.l[0] = static_cast<long>(AtomOf("WM_DELETE_WINDOW"));
    XSendEvent(display, message.window, False, NoEventMask, &event);
}

}  // namespace

int main(int count, char** arguments) {
    display = XOpenDisplay(nullptr);
    if (display == nullptr || count != 2) {
        return 1;
    }
    // Windows go away while something is asked of them.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    const std::chrono::milliseconds delay(std::atoi(arguments[1]));
    std::map<Window, SteadyClock::time_point> waiting;  // since when
    Promise();
    XSync(display, False);
    std::puts("ready");
    std::fflush(stdout);
    for (unsigned long round = 0;; ++round) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == MapRequest) {
                waiting.emplace(event.xmaprequest.window, SteadyClock::now());
            } else if (event.type == ConfigureRequest) {
                Configure(event.xconfigurerequest);
            } else if (event.type == ClientMessage) {
                PassCloseOn(event.xclient);
            }
        }
        for (const auto& [window, since] : waiting) {
            SetProperties(window, "_SILENT_DESKTOP_ROUND", XA_CARDINAL, {round});
            if (delay.count() >= 0 && SteadyClock::now() - since >= delay) {
                XMapWindow(display, window);
            }
        }
        XFlush(display);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}
