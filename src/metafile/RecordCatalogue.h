#pragma once

#include <cstdint>
#include <span>

namespace vellora::metafile {

/// One kind of record.
struct RecordKind {
    std::uint32_t type;
    const char* name;
    /// Bytes without which the record says nothing, from its start.
    std::uint32_t minimumBytes;
};

std::span<const RecordKind> emfRecords();
std::span<const RecordKind> wmfRecords();
/// Null for a type that is not among them.
const RecordKind* findRecord(std::span<const RecordKind> kinds, std::uint32_t type);

}  // namespace vellora::metafile
