#pragma once
// The console's commands of the window and the textures.

namespace GLWindow {

/// Adds them; run it after Console::Initialise.
void AddConsoleCommands();

}  // namespace GLWindow
