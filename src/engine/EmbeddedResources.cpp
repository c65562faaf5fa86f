// Lookup in the generated table of embedded files.

#include "engine/EmbeddedResources.h"

#include <algorithm>

std::span<const std::byte> EmbeddedResources::Find(std::string_view name) {
    const auto all = All();
    const auto found = std::find_if(
        all.begin(), all.end(), [name](const Resource& resource) { return resource.name == name; });
    if (found == all.end()) {
        return {};
    }
    return {found->begin, found->end};
}
