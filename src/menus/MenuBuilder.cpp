// Widgets from settings; see MenuBuilder.h.

#include "menus/MenuBuilder.h"

#include <algorithm>

#include "engine/BufferedFile.h"

namespace {

constexpr const char* generalFile = "cfg\\menu_general.cfg";

/// Truncated, and clamped to positions that a screen can have; 0 for a NaN.
int WholeUnits(float value) {
    constexpr float limit = 1.0e6f;
    return value == value ? static_cast<int>(std::clamp(value, -limit, limit)) : 0;
}

std::string ReadText(const std::string& fileName) {
    DiskFile file;
    file.Open(fileName);
    if (!file.IsOpen() || file.Remaining() <= 1) {
        return {};
    }
    return {reinterpret_cast<const char*>(file.Cursor()), file.Remaining()};
}

void PlaceBy(GuiWidget& widget, const std::string& name, const ConfigFile& file) {
    widget.SetPosition(WholeUnits(file.GetFloat(name + "_x")),
                       WholeUnits(file.GetFloat(name + "_y")));
}

void SizeBy(GuiWidget& widget, const std::string& name, const ConfigFile& file) {
    widget.SetSize(WholeUnits(file.GetFloat(name + "_w")), WholeUnits(file.GetFloat(name + "_h")));
}

void SetShadowBy(GuiShadow& widget, const std::string& prefix, const ConfigFile& file) {
    widget.dropShadow = true;
    widget.SetShadowOffset(file.GetFloat(prefix + "Offset_x"), file.GetFloat(prefix + "Offset_y"));
    widget.SetShadowColour(file.GetColour(prefix + "Color"));
}

}  // namespace

MenuBuilder::MenuBuilder(GuiScreen& builtScreen, const char* ownFile)
    : screen(builtScreen),
      general(generalFile),
      own(ownFile),
      font(general.GetString("menuFont"), "DEFAULT_FONT") {
    screen.clearBackground = false;
    screen.swapAfterPaint = false;
}

void MenuBuilder::AddLogo(const char* resourceName) {
    auto& logo = screen.Add<GuiImage>();
    logo.SetImage(general.GetString("logo"), resourceName);
    const auto width = static_cast<float>(logo.texture.width);
    const auto height = static_cast<float>(logo.texture.height);
    logo.SetSize(WholeUnits(width), WholeUnits(height));
    logo.SetPosition(WholeUnits(general.GetFloat("logo_x") - width / 2.0f),
                     WholeUnits(general.GetFloat("logo_y") - height / 2.0f));
}

GuiAnimatedButton& MenuBuilder::AddButton(const std::string& name) {
    auto& button = screen.Add<GuiAnimatedButton>();
    SetUpButton(button, name, general, own);
    return button;
}

GuiLabel& MenuBuilder::AddLabel(const std::string& name, const char* text,
                                const std::string& sizeKey) {
    auto& label = screen.Add<GuiLabel>();
    StyleText(label);
    label.SetText(text);
    label.SetFontSize(own.GetFloat(sizeKey));
    Place(label, name);
    return label;
}

GuiOptionChooser& MenuBuilder::AddChooser(const std::string& name) {
    auto& chooser = screen.Add<GuiOptionChooser>();
    StyleText(chooser);
    chooser.leftButton.dropShadow = true;
    chooser.rightButton.dropShadow = true;
    chooser.SetFontSize(own.GetFloat("optionChooserFontSizes"));
    Place(chooser, name);
    Size(chooser, name);
    const std::string left = "optionChooserLeftButtons_frames_";
    chooser.SetLeftFramesOutOfFocus(own.GetString(left + "outOfFocus"));
    chooser.SetLeftFramesInFocus(own.GetString(left + "inFocus"));
    chooser.SetLeftFramesClicked(own.GetString(left + "clicked"));
    const std::string right = "optionChooserRightButtons_frames_";
    chooser.SetRightFramesOutOfFocus(own.GetString(right + "outOfFocus"));
    chooser.SetRightFramesInFocus(own.GetString(right + "inFocus"));
    chooser.SetRightFramesClicked(own.GetString(right + "clicked"));
    return chooser;
}

GuiHighScores& MenuBuilder::AddHighScores(const std::string& name) {
    auto& table = screen.Add<GuiHighScores>();
    StyleText(table);
    Place(table, name);
    table.SetEntryFontSize(own.GetFloat(name + "_entryFontSize"));
    table.SetTitleFontSize(own.GetFloat(name + "_titleFontSize"));
    return table;
}

GuiTextBox& MenuBuilder::AddTextBox(const std::string& name, bool centred) {
    auto& box = screen.Add<GuiTextBox>();
    StyleText(box);
    box.centred = centred;
    Place(box, name);
    box.SetSize(WholeUnits(own.GetFloat(name + "_w")), 1);
    box.SetFontSize(own.GetFloat(name + "_fontSize"));
    box.SetText(ReadText(own.GetString(name + "_text")));
    return box;
}

void MenuBuilder::Place(GuiWidget& widget, const std::string& name) const {
    PlaceBy(widget, name, own);
}

void MenuBuilder::Size(GuiWidget& widget, const std::string& name) const {
    SizeBy(widget, name, own);
}

void MenuBuilder::SetShadow(GuiShadow& widget, const std::string& prefix) const {
    SetShadowBy(widget, prefix, general);
}

void SetUpButton(GuiAnimatedButton& button, const std::string& name, const ConfigFile& general,
                 const ConfigFile& own) {
    SetShadowBy(button, "buttonDropShadow", general);
    button.animationSpeed = general.GetFloat("menuAnimationSpeeds");
    button.SetOverSound(general.GetString("menuOverSound"));
    button.SetClickSound(general.GetString("menuClickedSound"));
    button.SetFramesOutOfFocus(own.GetString(name + "_frames_outOfFocus"));
    button.SetFramesInFocus(own.GetString(name + "_frames_inFocus"));
    button.SetFramesClicked(own.GetString(name + "_frames_clicked"));
    PlaceBy(button, name, own);
    SizeBy(button, name, own);
}

void MapKeyAlong(int virtualKey, std::initializer_list<GuiWidget*> widgets) {
    for (auto from = widgets.begin(); from != widgets.end() && from + 1 != widgets.end(); ++from) {
        (*from)->MapKey(virtualKey, *(from + 1));
    }
}
