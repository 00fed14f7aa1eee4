// Counting allocations, and making them fail.
#pragma once

namespace qrtVistrelClasses4 {

/// Allocations of this thread since it started. The test program's own `operator new` counts them.
int AllocationCount();

/// Makes one allocation of this thread fail, the `number`-th from now on; 0 makes none fail.
void FailAllocation(int number);
/// Whether that allocation has failed.
bool AllocationHasFailed();

/// Allocations that `work` makes.
template <class Work>
int AllocationsIn(Work work) {
    const int before = AllocationCount();
    work();
    return AllocationCount() - before;
}

} // namespace qrtVistrelClasses4
