#pragma once
// Makes a menu's widgets from settings: its own cfg file gives places, sizes and pictures, the
// file that all menus share gives font, colours, sounds and speeds. A missing key gives zero
// sizes and fallback pictures; nothing is reported. Lives as long as a menu's constructor.

#include <initializer_list>
#include <string>
#include <string_view>

#include "engine/ConfigFile.h"
#include "menus/GuiAnimatedButton.h"
#include "menus/GuiHighScores.h"
#include "menus/GuiImage.h"
#include "menus/GuiLabel.h"
#include "menus/GuiOptionChooser.h"
#include "menus/GuiScreen.h"
#include "menus/GuiTextBox.h"

class MenuBuilder {
public:
    /// Also sets up the screen as a page over the game's frame.
    MenuBuilder(GuiScreen& builtScreen, const char* ownFile);

    /// The picture at the head of most menus; `resourceName` is its fallback, null for none.
    void AddLogo(const char* resourceName);
    GuiAnimatedButton& AddButton(const std::string& name);
    /// `sizeKey` is the own file's key of the font size.
    GuiLabel& AddLabel(const std::string& name, const char* text,
                       const std::string& sizeKey = "labelFontSizes");
    GuiOptionChooser& AddChooser(const std::string& name);
    GuiHighScores& AddHighScores(const std::string& name);
    /// The text comes from the file that the settings name, and is empty without it.
    GuiTextBox& AddTextBox(const std::string& name, bool centred);

    /// Sets font, colour and shadow of a widget that draws text.
    template <class Widget>
    void StyleText(Widget& widget) const {
        widget.SetFont(font);
        widget.SetColour(general.GetColour("menuFontColor"));
        SetShadow(widget, "textDropShadow");
    }
    /// From the own file's keys, cut to whole units.
    void Place(GuiWidget& widget, const std::string& name) const;
    void Size(GuiWidget& widget, const std::string& name) const;

    const ConfigFile& General() const { return general; }
    const ConfigFile& Own() const { return own; }

private:
    void SetShadow(GuiShadow& widget, const std::string& prefix) const;

    GuiScreen& screen;
    ConfigFile general;
    ConfigFile own;
    Texture font;
};

/// Gives a button its sounds, speed, shadow, pictures, place and size. `general` is the file
/// that all menus share, `own` the one with the button's keys.
void SetUpButton(GuiAnimatedButton& button, const std::string& name, const ConfigFile& general,
                 const ConfigFile& own);

/// A key from each widget of the list to the next one.
void MapKeyAlong(int virtualKey, std::initializer_list<GuiWidget*> widgets);
