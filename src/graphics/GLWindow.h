#pragma once
// The program's single window: its life, its state, and the turning of its events into calls
// on one current listener. Nothing draws on a timer: a loop requests a repaint and pumps the
// messages, and the paint event calls the listener's OnPaint. Main thread only.
//
// Operations that the platform's window has in the same form are passed on inline. The cursor is
// in graphics/GLWindowCursor.h, what display and GL offer in graphics/GLWindowDisplay.h, and
// helpers that draw in graphics/GLWindowDraw.h.

#include <string>

#include "graphics/GLWindowEventListener.h"
#include "platform/System.h"
#include "platform/Window.h"

namespace GLWindow {

// Life.

/// Does nothing if a window is open. A failure shows a message and ends the process with
/// status 1: the program is nothing without its window.
void Create(const std::string& title, int width, int height);
/// The same, but false, with no window, where only the size is at fault.
bool TryCreate(const std::string& title, int width, int height);
void Close();
inline bool IsOpen() {
    return Platform::TheWindow().IsOpen();
}
/// Rebuilds the window with that many samples; 0 reads as 1. True if the count is in force
/// afterwards. Everything bound to the old context is gone after a rebuild.
bool SetSamples(unsigned count);
unsigned Samples();

// Events.

/// Drains the event queue. If the window has lost the foreground it is minimised here, and
/// the listener hears OnFocusLost, once per loss.
void PumpMessages();
/// From here to ReleaseEvents, while something depends on the window staying as it is,
/// PumpMessages neither closes nor minimises it: a close, a new size and a loss of the foreground
/// are handled by the first pump after that. Close must not be called meanwhile.
void HoldEvents();
void ReleaseEvents();
inline void RequestRepaint() {
    Platform::TheWindow().RequestRepaint();
}
inline void SwapBuffers() {
    Platform::TheWindow().SwapBuffers();
}
/// Between frames of a screen that changes little; see platform/Window.h.
inline bool Rest() {
    return Platform::TheWindow().Rest();
}
/// Null is allowed and drops all events. Not owned.
void SetListener(GLWindowEventListener* listener);
GLWindowEventListener* GetListener();

// Show state.

void SetTitle(const std::string& text);
std::string GetTitle();
inline bool IsForeground() {
    return Platform::TheWindow().IsForeground();
}
inline bool IsMinimised() {
    return Platform::TheWindow().IsMinimised();
}
inline bool IsMaximised() {
    return Platform::TheWindow().IsMaximised();
}
inline void BringToFront() {
    Platform::TheWindow().Focus();
}
inline void Maximise() {
    Platform::TheWindow().Maximise();
}
inline void Minimise() {
    Platform::TheWindow().Minimise();
}
inline void Restore() {
    Platform::TheWindow().Restore();
}

// Geometry. The client area's size is in framebuffer pixels, asked of the platform at each call;
// in any thread.

inline int ClientWidth() {
    return Platform::TheWindow().ClientWidth();
}
inline int ClientHeight() {
    return Platform::TheWindow().ClientHeight();
}
inline int ScreenWidth() {
    return Platform::TheWindow().ScreenWidth();
}
inline int ScreenHeight() {
    return Platform::TheWindow().ScreenHeight();
}
inline int WindowLeft() {
    return Platform::TheWindow().OuterLeft();
}
inline int WindowTop() {
    return Platform::TheWindow().OuterTop();
}
inline void Move(int x, int y) {
    Platform::TheWindow().MoveOuter(x, y);
}
void SetOuterSize(int width, int height);   ///< ignored unless both are at least 1
void SetClientSize(int width, int height);  ///< ignored unless both are at least 1
inline void SetResizable(bool on) {
    Platform::TheWindow().SetResizable(on);
}
inline bool IsResizable() {
    return Platform::TheWindow().IsResizable();
}
void Centre();
/// On: changes to the display mode of exactly this size, if there is one. Off: back to a
/// window of this client size, centred. A failed change is silent; ask IsFullscreen.
void SetFullscreen(bool on, int width, int height);
bool IsFullscreen();

// Keys and buttons (platform/VirtualKeys.h).

inline bool IsKeyDown(int virtualKey) {
    return Platform::TheWindow().IsKeyDown(virtualKey);
}
inline bool IsKeyToggled(int virtualKey) {
    return Platform::TheWindow().IsKeyToggled(virtualKey);
}
inline bool IsMouseButtonDown(int button) {
    return Platform::TheWindow().IsMouseButtonDown(button);
}
/// The character that the key makes now; 0 if none.
inline char KeyToChar(int virtualKey) {
    return Platform::TheWindow().KeyToChar(virtualKey);
}
/// The last key seen in a key-down event, then 0.
int TakeLastKey();
/// Last client position seen in any mouse event.
int MouseX();
int MouseY();

inline void ShowMessage(const std::string& text, const std::string& caption) {
    Platform::ShowMessage(text, caption);
}
inline bool AskYesNo(const std::string& text, const std::string& caption) {
    return Platform::AskYesNo(text, caption);
}

}  // namespace GLWindow
