// Finds rows in the table of trigger types.

#include "level/TriggerTypes.h"

#include <algorithm>

namespace TriggerTypes {

static_assert(std::ranges::is_sorted(all, {}, &TriggerType::kind));

const TriggerType* Find(std::int32_t number) {
    const auto kind = static_cast<TriggerKind>(number);
    const auto* const row = std::ranges::lower_bound(all, kind, {}, &TriggerType::kind);
    return row != std::end(all) && row->kind == kind ? row : nullptr;
}

const TriggerType* Find(std::string_view name) {
    const auto* const row = std::ranges::find(all, name, &TriggerType::name);
    return row != std::end(all) ? row : nullptr;
}

}  // namespace TriggerTypes
