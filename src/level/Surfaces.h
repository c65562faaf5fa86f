#pragma once
// The table of surface frictions that level polygons take theirs from.

/// Reads the table from cfg\surfaces.cfg; once, before the first level.
void ReadSurfaces();
/// 1 metal, 2 wood, 3 stone, 4 cloth, 5 sand.
bool IsValidSurface(int surface);
/// Share of speed that survives one second of contact; 1 for an unknown surface.
float SurfaceFriction(int surface);
