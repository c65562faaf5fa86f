#pragma once
// What the player hears and sees of the world in play.

class WorldListener;

/// Passes on to sounds, check point times, console and menus; lives as long as the program.
WorldListener& ListenerInPlay();
