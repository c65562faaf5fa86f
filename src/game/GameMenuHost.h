#pragma once
// The running game as the menus see it.

class MenuHost;

/// Passes on to Game, LevelProgress and HighScoreTable; lives as long as the program.
MenuHost& GameMenuHost();
