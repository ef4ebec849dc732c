#pragma once

#include <cstddef>

namespace vellora::test {

/// While it lives, whatever asks for more bytes at once by `new` on this thread gets no memory.
class ShortMemory {
public:
    /// Not under a sanitizer.
    static bool isPossible();

    explicit ShortMemory(std::size_t bytes);
    ~ShortMemory();
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;
};

}  // namespace vellora::test
