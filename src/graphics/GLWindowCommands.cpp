// The console commands of the window and of the textures.

#include "graphics/GLWindowCommands.h"

#include <string>
#include <vector>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Timer.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDisplay.h"
#include "graphics/TextureManager.h"

namespace GLWindow {

namespace {

bool Fullscreen(bool on, bool isSet) {
    if (isSet && on) {
        SetFullscreen(true, ScreenWidth(), ScreenHeight());
    } else if (isSet) {
        SetFullscreen(false, Platform::defaultWidth, Platform::defaultHeight);
        SetResizable(false);
    }
    return IsFullscreen();
}

void PrintRenderer() {
    Console::PrintBanner("Graphics renderer");
    Console::Print(Platform::TheWindow().RendererText());
}

void PrintLines(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        Console::Print("\n");
        Console::Print(line);
    }
}

void PrintExtensions() {
    Console::PrintBanner("Supported OpenGL Extensions");
    std::vector<std::string> names;
    ListExtensions(names);
    PrintLines(names);
}

void AskExtension(const std::string& name) {
    Console::Print(HasExtension(name) ? "\nExtension detected." : "\nExtension not found.");
}

int AntiAliasingSamples(int /*count*/, bool /*isSet*/) {
    return static_cast<int>(Samples());
}

bool VsyncEnable(bool on, bool isSet) {
    if (isSet) {
        SetVsync(on);
    }
    return VsyncEnabled();
}

int AnisotropicFilteringLevel(int level, bool isSet) {
    if (isSet) {
        TextureManager::SetAnisotropy(level);
    }
    return TextureManager::Anisotropy();
}

int TextureQualityNumber(int value, bool isSet) {
    if (isSet && value >= 0 && value <= static_cast<int>(TextureQuality::Halved)) {
        TextureManager::SetQuality(static_cast<TextureQuality>(value));
    }
    return static_cast<int>(TextureManager::Quality());
}

void ListTextures() {
    Console::PrintBanner("Textures in use");
    std::vector<std::string> lines;
    TextureManager::List(lines);
    PrintLines(lines);
}

void PrintTextureMemory() {
    Console::PrintBanner("Texture memory used");
    const std::uint32_t pixels = TextureManager::MemoryBytes();
    // The mipmaps of an image take a third of it.
    const std::uint32_t bytes = pixels + pixels / 3;
    const TextureQuality quality = TextureManager::Quality();
    Console::PrintUnsigned(quality == TextureQuality::Full         ? bytes
                           : quality == TextureQuality::Compressed ? bytes / 2
                                                                   : bytes / 4);
    Console::Print(" bytes");
}

void ReloadTextures() {
    Timer timer;
    TextureManager::ReloadAll();
    timer.Tick();
    Console::Print("\nTexture refresh complete.");
    Console::Print("\nTime take to reload: ");
    Console::PrintFloat(timer.deltaSeconds);
}

const Console::CommandTable commands{
    {"Quit", Close, "Ends the program."},
    {"Fullscreen", Fullscreen, "Fills the screen, or goes back to a window of 800 by 600."},
    {"Renderer", PrintRenderer, "Names what draws."},
    {"TextureList", ListTextures,
     "Lists the textures in use; \"(loading failed)\" marks images that can't be had."},
    {"TextureMemory", PrintTextureMemory, "Tells how much memory the textures take."},
    {"TextureReload", ReloadTextures, "Reads all textures from their files again."},
    {"Extensions", PrintExtensions, "Lists what the renderer offers beyond the least."},
    {"IsExtension", Console::SomeText<AskExtension>,
     "Tells whether the renderer offers an extension.", "\nUSAGE: IsExtension  < string >"},
    {"AntiAliasingSamples", AntiAliasingSamples,
     "How many samples a pixel has; a number given is passed over."},
    {"AnisotropicFilteringLevel", AnisotropicFilteringLevel,
     "How sharp textures stay when seen at a slant."},
    {"VsyncEnable", VsyncEnable, "Whether frames wait for the screen."},
    {"TextureQuality", TextureQualityNumber,
     "0 shows textures in full, 1 compressed, 2 compressed and at half their size."},
};

}  // namespace

void AddConsoleCommands() {
    commands.Add();
}

}  // namespace GLWindow
