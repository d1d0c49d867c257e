// The test program's own malloc and pthread_mutex_lock: they count while a CallbackGuard lives on the thread,
// and pass on to the C library. Libraries call them too, so nothing that a callback reaches escapes them.
#include "platform_sound_guard.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <pthread.h>

#include <mutex>

#include "platform/sound_mixer.h"
#include "platform/sound_puller.h"
#include "platform/sound_stream_clock.h"
#include "platform/synthesizer.h"
#include "platform_sound_helpers.h"

namespace {

struct Counts {
    bool counting = false;
    std::size_t allocations = 0;
    std::size_t locks = 0;
};
thread_local constinit Counts counts;

void countAllocation() {
    if (counts.counting) ++counts.allocations;
}

}  // namespace

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// The sanitizers have a malloc of their own, which offers hooks in its place.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                         void (*)(const volatile void*));
namespace {
[[maybe_unused]] const int hooksInstalled =
    __sanitizer_install_malloc_and_free_hooks([](const volatile void*, std::size_t) { countAllocation(); },
                                              [](const volatile void*) { countAllocation(); });
}
#else
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) {
    countAllocation();
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    countAllocation();
    return __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
    countAllocation();
    return __libc_realloc(block, size);
}
void* memalign(std::size_t alignment, std::size_t size) {
    countAllocation();
    return __libc_memalign(alignment, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    countAllocation();
    return __libc_memalign(alignment, size);
}
void free(void* block) {
    if (block) countAllocation();
    __libc_free(block);
}
}
#endif

extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
    using Lock = int (*)(pthread_mutex_t*);
    static const auto lock = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    if (counts.counting) ++counts.locks;
    return lock(mutex);
}

namespace melvane {

namespace sound_test {

CallbackGuard::CallbackGuard() { counts = {.counting = true}; }
CallbackGuard::~CallbackGuard() { counts.counting = false; }
std::size_t CallbackGuard::allocations() const { return counts.allocations; }
std::size_t CallbackGuard::locks() const { return counts.locks; }

}  // namespace sound_test

namespace {

using namespace sound_test;

// Kept in a volatile pointer, so that the compiler cannot leave the allocation out.
TEST(CallbackGuard, FiresAtNewMallocAndFree) {
    const CallbackGuard guard;
    int* volatile made = new int(1);
    EXPECT_EQ(guard.allocations(), 1U);
    delete made;
    EXPECT_EQ(guard.allocations(), 2U);
    void* volatile block = malloc(100);
    free(block);
    EXPECT_EQ(guard.allocations(), 4U);
}

TEST(CallbackGuard, FiresAtALock) {
    std::mutex mutex;
    const CallbackGuard guard;
    { const std::lock_guard lock(mutex); }
    EXPECT_EQ(guard.locks(), 1U);
}

TEST(CallbackGuard, CountsNothingOnceItIsGone) {
    { const CallbackGuard guard; }
    delete new int(1);
    const CallbackGuard guard;
    EXPECT_EQ(guard.allocations(), 0U);
}

/// Every kind of message in turn, with resets, on all channels.
void sendOneOfEachKind(Synthesizer& synthesizer, std::uint32_t turn, std::int64_t moment) {
    const std::uint32_t channel = turn % 16;
    const std::uint32_t key = 30 + turn * 7 % 60;
    synthesizer.send(program(channel, turn * 5 % 128), moment);
    synthesizer.send(noteOn(channel, key), moment + 10);
    synthesizer.send(controller(channel, 10, turn % 128), moment + 20);
    synthesizer.send(controller(channel, 91, turn % 128), moment + 20);
    synthesizer.send(0x0040'40E0U | channel, moment + 30);
    synthesizer.send(0x0000'40D0U | channel, moment + 30);
    synthesizer.send(0x0040'3CA0U | channel, moment + 30);
    synthesizer.send(noteOff(channel, key), moment + 300);
    if (turn % 40 == 39) synthesizer.reset(moment + 310);
}

TEST(AudioCallback, NeitherAllocatesNorLocks) {
    class SilentTap final : public SoundTap {
        void hear(std::span<const float>, std::int64_t) noexcept override {}
    };
    FrameClock clock;
    Synthesizer synthesizer(clock, 0.01);
    ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt);
    SilentTap tap;
    SoundMixer mixer({&synthesizer}, {&tap}, clock.frequency());
    const auto ticket = mixer.handOver();
    StreamClock stream(clock.frequency());
    std::vector<float> block(256 * soundChannels);
    float loudest = 0.0F;
    for (std::uint32_t turn = 0; turn < 400; ++turn) {
        sendOneOfEachKind(synthesizer, turn, clock.now);
        const CallbackGuard guard;
        mixer.render(ticket, block, [&] { return stream.next(clock.now, 256); });
        ASSERT_EQ(guard.allocations(), 0U) << "block " << turn;
        ASSERT_EQ(guard.locks(), 0U) << "block " << turn;
        loudest = std::max(loudest, peak(block));
        clock.now += 256;
    }
    EXPECT_GT(loudest, 0.01F);
}

}  // namespace
}  // namespace melvane
