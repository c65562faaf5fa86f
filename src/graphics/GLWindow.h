#pragma once
// The program's single window: its life, its state, and the turning of its events into calls
// on one current listener. Nothing draws on a timer: a loop requests a repaint and pumps the
// messages, and the paint event calls the listener's OnPaint. Main thread only.
//
// Helpers that draw lie in graphics/GLWindowDraw.h.

#include <string>
#include <string_view>
#include <vector>

#include "graphics/GLWindowEventListener.h"
#include "platform/Window.h"

namespace GLWindow {

/// Does nothing if a window is open. A failure shows a message and ends the process with
/// status 1: the program is nothing without its window.
void Create(const std::string& title, int width, int height);
/// The same, but false, with no window, where only the size is at fault.
bool TryCreate(const std::string& title, int width, int height);
void Close();
bool IsOpen();
/// Drains the event queue. If the window has lost the foreground it is minimised here, and
/// the listener hears OnFocusLost, once per loss.
void PumpMessages();
/// From here to ReleaseEvents, while something is going on that needs its window as it is,
/// PumpMessages neither closes nor minimises it: a close, a new size and a loss of the
/// foreground are served by the first pump after that. Close is not to be called meanwhile.
void HoldEvents();
void ReleaseEvents();
void RequestRepaint();
void SwapBuffers();
/// Null is allowed and drops all events. Not owned.
void SetListener(GLWindowEventListener* listener);
GLWindowEventListener* GetListener();

void SetTitle(const std::string& text);
std::string GetTitle();
bool IsForeground();
bool IsMinimised();
bool IsMaximised();
void BringToFront();
void Maximise();
void Minimise();
void Restore();

/// Size of the client area in framebuffer pixels, asked of the platform at each call; in any
/// thread.
int ClientWidth();
int ClientHeight();
int ScreenWidth();
int ScreenHeight();
int WindowLeft();
int WindowTop();
void Move(int x, int y);
void SetOuterSize(int width, int height);   ///< ignored unless both are at least 1
void SetClientSize(int width, int height);  ///< ignored unless both are at least 1
void SetResizable(bool on);
bool IsResizable();
void Centre();

/// On: changes to the display mode of exactly this size, if there is one. Off: back to a
/// window of this client size, centred. A failed change is silent; ask IsFullscreen.
void SetFullscreen(bool on, int width, int height);
bool IsFullscreen();
/// The mode of that size whose rate comes nearest to 60 Hz, walking towards it in the order
/// of the list.
bool FindDisplayMode(int width, int height, Platform::DisplayMode& best);
bool HasDisplayMode(int width, int height);
/// Brightness of the whole screen, 0 to 2; ignored outside of that.
void SetGamma(float value);

void SetCursorKind(Platform::Cursor kind);
Platform::Cursor GetCursorKind();
bool IsCursorInClient();
int CursorScreenX();
int CursorScreenY();
int ClientCentreScreenX();
int ClientCentreScreenY();
/// After this, a mouse at rest reads exactly ClientCentreScreenX.
void WarpCursorToCentre();
void WarpCursorBy(int dx, int dy);
/// The toolkit can't confine the cursor to a rectangle: these do nothing.
void ClipCursorTo(int x, int y, int width, int height);
void UnclipCursor();
/// Last client position seen in any mouse event.
int MouseX();
int MouseY();

bool IsKeyDown(int virtualKey);
bool IsKeyToggled(int virtualKey);
bool IsMouseButtonDown(int button);
/// The character that the key makes now; 0 if none.
char KeyToChar(int virtualKey);
/// The last key seen in a key-down event, then 0.
int TakeLastKey();
void ShowMessage(const std::string& text, const std::string& caption);
bool AskYesNo(const std::string& text, const std::string& caption);

/// Rebuilds the window with that many samples; 0 reads as 1. True if the count is in force
/// afterwards. Everything bound to the old context is gone after a rebuild.
bool SetSamples(unsigned count);
unsigned Samples();
/// Whether the context's extension list holds the name as a whole word, in any case.
bool HasExtension(std::string_view name);
void ListExtensions(std::vector<std::string>& list);
void SetVsync(bool on);
/// True if the swap interval is above 0, and also if it can't be asked.
bool VsyncEnabled();

/// Adds the window's and the textures' commands to the console; run it after
/// Console::Initialise.
void AddConsoleCommands();

}  // namespace GLWindow
