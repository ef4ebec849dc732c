#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace vellora {

/// Asks for large pages where memory is still untouched: most of the time that a fresh picture
/// takes is spent on small ones, and memory that is read here and there misses fewer of them. The
/// system is free to ignore it.
void preferLargePages(void* data, std::size_t size);

template <class T>
struct LargePageAllocator : std::allocator<T> {
    template <class Other>
    struct rebind {
        using other = LargePageAllocator<Other>;
    };

    [[nodiscard]] T* allocate(std::size_t count) {
        T* data = std::allocator<T>::allocate(count);
        preferLargePages(data, count * sizeof(T));
        return data;
    }
};

/// A vector that may hold as much as a picture.
template <class T>
using LargeVector = std::vector<T, LargePageAllocator<T>>;

}  // namespace vellora
