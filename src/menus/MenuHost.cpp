// The host in force; see MenuHost.h.

#include "menus/MenuHost.h"

namespace {

MenuHost* currentHost = nullptr;

}  // namespace

MenuHost& MenuHost::Current() {
    static MenuHost none;
    return currentHost ? *currentHost : none;
}

void MenuHost::Use(MenuHost* host) {
    currentHost = host;
}
