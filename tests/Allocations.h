// How often memory is allocated, and what becomes of a program that gets none.
#pragma once

namespace qrtVistrelClasses4 {

/// By this thread, since it started. The test program's own `operator new` counts.
int AllocationCount();

/// Makes one allocation of this thread fail, the `number`-th from now on; 0 makes none fail.
void FailAllocation(int number);
/// Whether that one has failed.
bool AllocationHasFailed();

/// Allocations that `work` makes.
template <class Work>
int AllocationsIn(Work work) {
    const int before = AllocationCount();
    work();
    return AllocationCount() - before;
}

} // namespace qrtVistrelClasses4
