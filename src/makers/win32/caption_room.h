#pragma once

#include <windows.h>

namespace vrix {

// While it lives, every message box is at least as wide as its caption needs. The platform looks at its text alone.
class CaptionRoom {
public:
    CaptionRoom();
    ~CaptionRoom();
    CaptionRoom(const CaptionRoom&) = delete;
    CaptionRoom& operator=(const CaptionRoom&) = delete;

private:
    HHOOK hook_;
};

}  // namespace vrix
