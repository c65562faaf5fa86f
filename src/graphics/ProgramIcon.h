#pragma once
// The window's icon, from the picture that is built into the program.

/// Hands the icon to the window; without one the desktop shows its own.
void ShowProgramIcon();
