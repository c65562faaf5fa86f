// Life of the console and its settings.

#include "engine/Console.h"

#include <algorithm>

#include "engine/ConfigFile.h"
#include "engine/ConsoleCommands.h"
#include "engine/ConsoleParts.h"

namespace Console {

Settings settings;

namespace {

// Far beyond any screen; keeps sizes in pixels from overflowing.
constexpr int maxFontSize = 4096;

// Reads `name`_r, _g and _b; missing keys leave the colour as it is.
void ReadColour(const ConfigFile& config, const std::string& name, Colour& colour) {
    config.ReadFloat(name + "_r", colour.r);
    config.ReadFloat(name + "_g", colour.g);
    config.ReadFloat(name + "_b", colour.b);
}

}  // namespace

void Initialise() {
    Clear();
    RemoveAllCommands();
    AddBuiltInCommands();

    const ConfigFile config("cfg//console.cfg");
    settings = {};
    settings.fontTextureName = config.GetString("fontTextureName");
    config.ReadInt("fontSize", settings.fontSize);
    settings.fontSize = std::clamp(settings.fontSize, 1, maxFontSize);
    ReadColour(config, "output_background", settings.outputBackground);
    config.ReadFloat("output_background_a", settings.outputBackground.a);
    ReadColour(config, "output_text", settings.outputText);
    ReadColour(config, "input_background", settings.inputBackground);
    ReadColour(config, "input_border", settings.inputBorder);
    ReadColour(config, "input_text", settings.inputText);
    if (config.GetBool("enableLogging")) {
        SetLogging(true);
    }
}

void Shutdown() {
    RemoveAllCommands();
    ForgetHistory();
    SetLogging(false);
}

void Clear() {
    ClearLine();
    ClearOutput();
}

}  // namespace Console
