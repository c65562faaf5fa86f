#pragma once
// The game's ten menus and which of them shows. The game is the window's listener and passes
// input on, and draws the menu over its own frame.
//
// A menu is built when it is first shown, or before that by BuildNext, in a moment that nobody
// waits for: the pictures of all of them take longer to load than a level. Initialise may run at
// each start of a level; Shutdown ends it. Main thread only.

namespace MenuManager {

/// The only names by which the rest of the program knows the menus.
enum Number : int {
    None = 0,  ///< the game is being played
    Main = 1,
    InGame = 2,
    Options = 3,
    HighScores = 4,
    Instructions = 5,
    QuitGame = 6,
    LoadMap = 7,
    Credits = 8,
    LevelFinished = 9,
    Restart = 10,
};

/// No menu shows afterwards.
void Initialise();
void Shutdown();
/// Builds the next menu that is missing; false if all are there.
bool BuildNext();

/// Shows a menu from its initial state, or none. A number that isn't one keeps the menu, which
/// starts anew. The menu that showed becomes the previous one: going back reaches one step.
void Show(int number);
int Current();
int Previous();

// For the menu that shows, if one does.

void Draw();
void OnMouseMove(int x, int y);
void OnMouseDown(int x, int y, int button);
void OnMouseUp(int x, int y, int button);
void OnKeyDown(int virtualKey);
void OnKeyUp(int virtualKey);

}  // namespace MenuManager
