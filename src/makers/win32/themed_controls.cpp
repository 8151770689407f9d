#include "makers/win32/themed_controls.h"

namespace vrix {

namespace {

// The activation context of the program's second manifest. A program without one gets the classic controls.
HANDLE controlsContext() {
    static const HANDLE made = [] {
        constexpr int manifest = 2;
        ACTCTXW context{};
        context.cbSize = sizeof(context);
        context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        context.lpResourceName = MAKEINTRESOURCEW(manifest);
        context.hModule = GetModuleHandleW(nullptr);
        return CreateActCtxW(&context);
    }();
    return made;
}

}  // namespace

ThemedControls::ThemedControls()
    : active_(controlsContext() != INVALID_HANDLE_VALUE && ActivateActCtx(controlsContext(), &cookie_) != FALSE) {}

ThemedControls::~ThemedControls() {
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace vrix
