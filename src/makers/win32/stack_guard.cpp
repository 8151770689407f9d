#include <windows.h>

#include <cstdint>

// What the compiler's checks of the stack ask for. The compiler's own library has the same, but takes its random number
// from a provider of certificates. Its libraries would be loaded at each start, and add a twentieth to the time until
// the first window shows.

extern "C" {

BOOLEAN NTAPI SystemFunction036(void* buffer, ULONG size);  // the documented name of RtlGenRandom

std::uintptr_t __stack_chk_guard = 0xFF0A0D00;  // ends every text, if there is no random number

[[noreturn]] void __stack_chk_fail() {
    constexpr UINT stackBufferOverrun = 0xC0000409;
    TerminateProcess(GetCurrentProcess(), stackBufferOverrun);
    __builtin_trap();
}

[[noreturn]] void __chk_fail() { __stack_chk_fail(); }  // a copy would go beyond its target

}  // extern "C"

// Before any function that is checked.
[[gnu::constructor(101), gnu::no_stack_protector]] static void chooseGuard() {
    SystemFunction036(&__stack_chk_guard, sizeof __stack_chk_guard);
}
