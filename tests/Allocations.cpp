#include "Allocations.h"

#include <cstdlib>
#include <new>

namespace {

thread_local int allocations = 0;
thread_local int failing = 0; ///< Number of the allocation that fails.

} // namespace

// These replace the functions of the whole test program.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (++allocations == failing)
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}
void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

int qrtVistrelClasses4::AllocationCount() { return allocations; }
void qrtVistrelClasses4::FailAllocation(int number) { failing = number == 0 ? 0 : allocations + number; }
bool qrtVistrelClasses4::AllocationHasFailed() { return failing != 0 && allocations >= failing; }
