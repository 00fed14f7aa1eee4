// The trace stands around every property, so it must not cost memory.
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {

thread_local int allocations = 0;

} // namespace

// These serve the whole test program.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++allocations;
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

namespace qrtVistrelClasses4 {
namespace {

template <class Work>
int allocationsIn(Work work) {
    const int before = allocations;
    work();
    return allocations - before;
}

TEST(TracedProperty, AllocatesNothingForTheTrace) {
    const TestHost host;
    const std::string text(100, 'x'); // longer than what a string holds without memory of its own
    FrameInfoClass frames;
    frames.CurrentFrame(1);
    frames.FrameName(text);

    ASSERT_TRUE(TraceIsOn());
    EXPECT_EQ(allocationsIn([&] { frames.DelayTime(1.25); }), 0);
    EXPECT_EQ(allocationsIn([&] { EXPECT_EQ(frames.DelayTime(), 1.25); }), 0);
    EXPECT_EQ(allocationsIn([&] { frames.FrameName(text); }), 0) << "the old text left room for the new one";
    EXPECT_EQ(allocationsIn([&] { (void)frames.FrameName(); }), 1) << "only the text that is handed out";
}

} // namespace
} // namespace qrtVistrelClasses4
