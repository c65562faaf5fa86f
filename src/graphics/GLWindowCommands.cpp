// The console commands of the window and of the textures.

#include <string>

#include "engine/Console.h"
#include "engine/Timer.h"
#include "graphics/GLWindow.h"
#include "graphics/TextureManager.h"

namespace GLWindow {

namespace {

bool Fullscreen(bool on, bool isSet) {
    if (isSet && on) {
        SetFullscreen(true, ScreenWidth(), ScreenHeight());
    } else if (isSet) {
        SetFullscreen(false, 800, 600);
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

void AskExtension(const char* name) {
    if (name == nullptr || *name == '\0') {
        Console::Print("\nUSAGE: IsExtension ");
        Console::Print(" < string >");
    } else {
        Console::Print(HasExtension(name) ? "\nExtension detected." : "\nExtension not found.");
    }
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

int TextureQuality(int value, bool isSet) {
    if (isSet) {
        TextureManager::SetQuality(value);
    }
    return TextureManager::Quality();
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
    const int quality = TextureManager::Quality();
    Console::PrintUnsigned(quality == 1 ? bytes / 2 : quality == 2 ? bytes / 4 : bytes);
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

}  // namespace

void AddConsoleCommands() {
    Console::AddCommand("Quit", &Close);
    Console::AddCommand("Fullscreen", &Fullscreen);
    Console::AddCommand("Renderer", &PrintRenderer);
    Console::AddCommand("TextureList", &ListTextures);
    Console::AddCommand("TextureMemory", &PrintTextureMemory);
    Console::AddCommand("TextureReload", &ReloadTextures);
    Console::AddCommand("Extensions", &PrintExtensions);
    Console::AddCommand("IsExtension", &AskExtension);
    Console::AddCommand("AntiAliasingSamples", &AntiAliasingSamples);
    Console::AddCommand("AnisotropicFilteringLevel", &AnisotropicFilteringLevel);
    Console::AddCommand("VsyncEnable", &VsyncEnable);
    Console::AddCommand("TextureQuality", &TextureQuality);
}

}  // namespace GLWindow
