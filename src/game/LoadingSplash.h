#pragma once
// The picture with its small animation that stands in the window while a level loads. The
// loader keeps the main thread busy, so the splash draws on a thread of its own, the program's
// only second one: it has the window's GL context from Start to Stop, while the main thread
// loads in a hidden context that shares textures and display lists. In that time no event
// reaches anybody, and only the splash swaps; the window stays open whatever the player does,
// since level and splash are at work in it, and hears of that at the next loop's first pump.
//
// Settings, images and the console are touched by the main thread alone, before the thread
// starts and after it has ended; in between it has its own picture and the window's context,
// and nothing else. Without a second context a still picture stands there.

namespace LoadingSplash {

/// Comes back when the thread is about to draw. Nothing happens while the splash is up.
void Start();
/// Comes back when the thread has ended and the window's context and listener are back.
void Stop();
bool IsRunning();

}  // namespace LoadingSplash
