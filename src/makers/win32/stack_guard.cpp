#include <windows.h>

#include <cstdint>

// The symbols that the compiler's stack protector needs. The compiler's own library has them too, but takes its random
// number from a cryptographic provider, whose libraries would be loaded at each start: a twentieth more time until the
// first window shows.

extern "C" {

BOOLEAN NTAPI SystemFunction036(void* buffer, ULONG size);  // the documented name of RtlGenRandom

std::uintptr_t __stack_chk_guard = 0xFF0A0D00;  // a terminator canary, in case there is no random number

[[noreturn]] void __stack_chk_fail() {
    constexpr UINT stackBufferOverrun = 0xC0000409;
    TerminateProcess(GetCurrentProcess(), stackBufferOverrun);
    __builtin_trap();
}

[[noreturn]] void __chk_fail() { __stack_chk_fail(); }  // a copy would overflow its buffer

}  // extern "C"

// Before any function that is checked.
[[gnu::constructor(101), gnu::no_stack_protector]] static void chooseGuard() {
    SystemFunction036(&__stack_chk_guard, sizeof __stack_chk_guard);
}
