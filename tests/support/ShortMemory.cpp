#include "support/ShortMemory.h"

#include <cstdlib>
#include <limits>
#include <new>

// The sanitizers bring operators of their own, which watch what is freed how.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VELLORA_SANITIZED
#endif

namespace {

constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();

thread_local std::size_t t_most = kAll;

}  // namespace

#ifndef VELLORA_SANITIZED

// These replace the ones of the language in the whole test program.

void* operator new(std::size_t size) {
    void* memory = size <= t_most ? std::malloc(size > 0 ? size : 1) : nullptr;
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

#endif

namespace vellora::test {

bool ShortMemory::isPossible() {
#ifdef VELLORA_SANITIZED
    return false;
#else
    return true;
#endif
}

ShortMemory::ShortMemory(std::size_t bytes) {
    t_most = bytes;
}

ShortMemory::~ShortMemory() {
    t_most = kAll;
}

}  // namespace vellora::test
