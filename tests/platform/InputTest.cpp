#include <gtest/gtest.h>

#include <vector>

#include "platform/FocusFilter.h"
#include "platform/VirtualKeys.h"
#include "platform/WindowInput.h"

namespace {

using Platform::Event;
using Platform::EventKind;
using Platform::WindowInput;
using Action = WindowInput::KeyAction;

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
    EXPECT_EQ(events[1].key, VirtualKey::unnamed);
    EXPECT_EQ(input.CharacterOf(VirtualKey::unnamed), 'x');
}

TEST(WindowInput, HoldsACodeWhileOneOfItsKeysIsDown) {
    WindowInput input;
    input.AddKey(VirtualKey::shift, Action::Press);
    input.AddKey(VirtualKey::shift, Action::Press);
    input.AddKey(VirtualKey::shift, Action::Release);
    EXPECT_TRUE(input.IsKeyDown(VirtualKey::shift));
    input.AddKey(VirtualKey::shift, Action::Release);
    EXPECT_FALSE(input.IsKeyDown(VirtualKey::shift));
    input.AddKey(VirtualKey::shift, Action::Release);
    input.AddKey(VirtualKey::shift, Action::Press);
    EXPECT_TRUE(input.IsKeyDown(VirtualKey::shift)) << "a stray release leaves no debt";
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

}  // namespace
