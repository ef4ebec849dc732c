#include "support/Mutation.h"

#include <algorithm>
#include <cstdint>

namespace vellora::test {

int mutationCount() {
    const int wanted = qEnvironmentVariableIntValue("VELLORA_MUTATIONS");
    return wanted > 0 ? wanted : 1'500;
}

void mutate(QByteArray& bytes, std::mt19937& random) {
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<std::uint64_t>(limit));
    };
    constexpr unsigned char extremes[] = {0x00, 0x01, 0x7F, 0x80, 0xFF, 0xFE};
    for (qsizetype changes = 1 + below(6); changes > 0 && !bytes.isEmpty(); --changes) {
        const qsizetype at = below(bytes.size());
        switch (below(6)) {
            case 0:
                bytes[at] = static_cast<char>(random());
                break;
            case 1:
                bytes[at] = static_cast<char>(extremes[below(6)]);
                break;
            case 2:
                for (qsizetype i = at & ~qsizetype{3}; i < std::min((at | 3) + 1, bytes.size());
                     ++i)
                    bytes[i] = static_cast<char>(extremes[below(6)]);
                break;
            case 3:
                bytes.remove(at, 1 + below(8));
                break;
            case 4:
                bytes.insert(at, bytes.mid(below(bytes.size()), 1 + below(40)));
                break;
            default:
                bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
                break;
        }
    }
    if (below(20) == 0)
        bytes.truncate(below(bytes.size() + 1));
}

}  // namespace vellora::test
