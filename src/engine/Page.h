#pragma once
// The page that menus, pictures of whole screens and the logical view are laid out on, whatever
// the window's size.

namespace Page {

// In units of the page.
inline constexpr float width = 800.0f;
inline constexpr float height = 600.0f;

}  // namespace Page
