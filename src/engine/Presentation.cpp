// Which presentation is in force.

#include "engine/Presentation.h"

namespace {

Presentation none;
Presentation* current = nullptr;

}  // namespace

Presentation& Presentation::Current() {
    return current != nullptr ? *current : none;
}

void Presentation::Use(Presentation* presentation) {
    current = presentation;
}
