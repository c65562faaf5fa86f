#pragma once
// What a program with a screen adds to the running game. Modules that simulate call the
// current presentation at the few points where something to be seen begins, ends or is due;
// a program without a screen never sets one, and these calls do nothing.

class Presentation {
public:
    virtual ~Presentation() = default;

    /// Around the loading of a level, during which something else is shown.
    virtual void BeginLoading() {}
    virtual void EndLoading() {}
    /// The level's polygons and tree are built: make what drawing the level needs.
    virtual void PrepareLevel() {}
    /// The level is unloaded: drop what `PrepareLevel` made.
    virtual void ReleaseLevel() {}
    /// The water's sprites and colours.
    virtual void PrepareWater() {}
    virtual void ReleaseWater() {}
    /// Draws one frame and swaps the buffers.
    virtual void DrawFrame() {}

    /// The presentation in force, never null; one that does nothing unless one was set.
    static Presentation& Current();
    /// Sets the presentation, not owned; null goes back to the one that does nothing.
    static void Use(Presentation* presentation);
};
