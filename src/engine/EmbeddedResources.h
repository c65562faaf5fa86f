#pragma once
// Files that are compiled into the program: the last resort for images, and the window's
// icon. They come from art/embedded; a resource's name is its file's, without the extension.

#include <cstddef>
#include <span>
#include <string_view>

namespace EmbeddedResources {

struct Resource {
    const char* name;
    const std::byte* begin;
    const std::byte* end;
};

/// All resources, in no order.
std::span<const Resource> All();

/// The bytes of the resource of exactly that name; empty if there is none.
std::span<const std::byte> Find(std::string_view name);

}  // namespace EmbeddedResources
