// How often memory is allocated.
#pragma once

namespace qrtVistrelClasses4 {

/// By this thread, since it started. The test program's own `operator new` counts.
int AllocationCount();

/// Allocations that `work` makes.
template <class Work>
int AllocationsIn(Work work) {
    const int before = AllocationCount();
    work();
    return AllocationCount() - before;
}

} // namespace qrtVistrelClasses4
