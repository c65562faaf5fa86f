#include <gtest/gtest.h>

#include <vector>

#include "platform/FocusFilter.h"
#include "platform/HeadlessWindow.h"
#include "platform/Keys.h"
#include "platform/VirtualKeys.h"
#include "platform/WindowInput.h"

namespace {

using Platform::Event;
using Platform::EventKind;
using Platform::WindowInput;
using Action = WindowInput::KeyAction;

// Numbers of the toolkit's keys.
constexpr int graveAccent = 96;
constexpr int leftShift = 340;
constexpr int rightShift = 344;

TEST(Keys, GiveTheCodesThatTheGameActsOn) {
    EXPECT_EQ(Platform::KeyCode(graveAccent), VirtualKey::console);
    EXPECT_EQ(Platform::KeyCode(leftShift), Platform::KeyCode(rightShift));
    const std::vector<std::pair<int, int>> pairs{{256, VirtualKey::escape},
                                                 {257, VirtualKey::enter},
                                                 {258, VirtualKey::tab},
                                                 {259, VirtualKey::backspace},
                                                 {260, VirtualKey::insert},
                                                 {261, VirtualKey::deleteKey},
                                                 {262, VirtualKey::right},
                                                 {263, VirtualKey::left},
                                                 {264, VirtualKey::down},
                                                 {265, VirtualKey::up},
                                                 {266, VirtualKey::pageUp},
                                                 {267, VirtualKey::pageDown},
                                                 {268, VirtualKey::home},
                                                 {269, VirtualKey::end},
                                                 {284, VirtualKey::pause},
                                                 {'P', 'P'},
                                                 {'7', '7'},
                                                 {290, 112},
                                                 {301, 123},
                                                 {320, 96},
                                                 {329, 105}};
    for (const auto& [toolkitKey, code] : pairs) {
        EXPECT_EQ(Platform::KeyCode(toolkitKey), code) << toolkitKey;
    }
    EXPECT_EQ(Platform::KeyCode(-1), Platform::unnamedKey);
}

std::vector<Event> Drain(WindowInput& input) {
    std::vector<Event> events;
    for (Event event; input.Take(event);) {
        events.push_back(event);
    }
    return events;
}

TEST(WindowInput, PairsCharactersWithTheKeysThatMadeThem) {
    WindowInput input;
    input.AddKey('A', Action::Press);
    input.AddCharacter('a');
    input.AddKey('A', Action::Repeat);
    input.AddCharacter('A');
    input.AddKey(VirtualKey::left, Action::Press);
    input.AddKey(VirtualKey::enter, Action::Press);
    Event event;
    ASSERT_TRUE(input.Take(event));
    EXPECT_EQ(input.CharacterOf('A'), 'a') << "the key in hand, not the one that waits";
    ASSERT_TRUE(input.Take(event));
    EXPECT_EQ(input.CharacterOf('A'), 'A');
    Drain(input);
    EXPECT_EQ(input.CharacterOf(VirtualKey::left), '\0');
    EXPECT_EQ(input.CharacterOf(VirtualKey::enter), '\r');
    EXPECT_EQ(input.CharacterOf(-5), '\0');
}

TEST(WindowInput, KeepsCharactersThatComeAloneAndDropsWhatNoFontHas) {
    WindowInput input;
    input.AddKey('E', Action::Press);
    input.AddCharacter(0x20AC);
    input.AddCharacter(0xE9);
    input.AddCharacter('x');
    const std::vector<Event> events = Drain(input);
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[0].character, static_cast<char>(0xE9));
    EXPECT_EQ(events[1].key, Platform::unnamedKey);
    EXPECT_EQ(input.CharacterOf(Platform::unnamedKey), 'x');
}

TEST(WindowInput, HoldsACodeWhileOneOfItsKeysIsDown) {
    WindowInput input;
    input.AddKey(16, Action::Press);
    input.AddKey(16, Action::Press);
    input.AddKey(16, Action::Release);
    EXPECT_TRUE(input.IsKeyDown(16));
    input.AddKey(16, Action::Release);
    EXPECT_FALSE(input.IsKeyDown(16));
    input.AddKey(16, Action::Release);
    input.AddKey(16, Action::Press);
    EXPECT_TRUE(input.IsKeyDown(16)) << "a stray release leaves no debt";
}

TEST(WindowInput, TogglesAtPressesAndNotAtRepeats) {
    WindowInput input;
    input.AddKey(VirtualKey::insert, Action::Press);
    input.AddKey(VirtualKey::insert, Action::Repeat);
    input.AddKey(VirtualKey::insert, Action::Release);
    EXPECT_TRUE(input.IsKeyToggled(VirtualKey::insert));
    input.AddKey(VirtualKey::insert, Action::Press);
    EXPECT_FALSE(input.IsKeyToggled(VirtualKey::insert));
}

TEST(WindowInput, PaintsOnceAndLast) {
    WindowInput input;
    input.RequestRepaint();
    input.RequestRepaint();
    input.AddMouseMove(1, 2);
    const std::vector<Event> events = Drain(input);
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0].kind, EventKind::MouseMove);
    EXPECT_EQ(events[1].kind, EventKind::Paint);
}

TEST(FocusFilter, TakesOnlyALossThatLasts) {
    Platform::FocusFilter focus;
    focus.Update(false, 0);
    EXPECT_FALSE(focus.IsForeground()) << "it never had the focus";
    focus.Update(true, 10);
    EXPECT_TRUE(focus.IsForeground());
    for (std::uint32_t time = 20; time < 60; time += 10) {
        focus.Update(false, time);
    }
    EXPECT_TRUE(focus.IsForeground());
    focus.Update(true, 60);
    focus.Update(false, 100);
    focus.Update(false, 5000);
    EXPECT_TRUE(focus.IsForeground()) << "one slow frame is no loss";
    focus.Update(false, 5001);
    EXPECT_FALSE(focus.IsForeground());
}

TEST(HeadlessWindow, RunsItsScript) {
    Platform::HeadlessWindow window;
    ASSERT_EQ(window.Create({.title = "t"}), Platform::WindowError::None);
    EXPECT_EQ(window.ClientWidth(), 800);
    EXPECT_EQ(window.ClientHeight(), 600);
    EXPECT_LT(window.CursorScreenX(), window.ClientLeft());

    window.SetKey(VirtualKey::left, true);
    EXPECT_TRUE(window.IsKeyDown(VirtualKey::left));
    window.SetKey(VirtualKey::left, false);
    EXPECT_FALSE(window.IsKeyDown(VirtualKey::left));
    window.SetCursorPosition(window.ClientLeft() + 5, window.ClientTop() + 7);
    window.SetButton(2, true);
    EXPECT_TRUE(window.IsMouseButtonDown(2));
    std::vector<Event> events;
    for (Event event; window.TakeEvent(event);) {
        events.push_back(event);
    }
    ASSERT_EQ(events.size(), 4u);
    EXPECT_EQ(events[2].kind, EventKind::MouseMove);
    EXPECT_EQ(events[3].x, 5);
    EXPECT_EQ(events[3].y, 7);
}

}  // namespace
