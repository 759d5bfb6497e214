// The library's codecs by the kind of record, with the memory that each works on: a
// live record, as the pipeline would hand it in. Knows no file names and no members.
// A table of static storage; no state, no locks.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace simrec {

/// Bytes [begin, end) of a live record.
struct ByteRange {
  std::size_t begin = 0;
  std::size_t end = 0;
};

struct Codec {
  std::string_view kind;  ///< "AE_AECData", "LSC", ...

  /// Bytes of the live record. 0: only the caller of the library knows; then it is
  /// the file's own size, rounded down to `unit`.
  std::size_t size = 0;
  std::size_t unit = 1;

  /// Reads `path` over the live record, or writes it there, as the operation does at
  /// its own path: the same log lines, exceptions, aborts. A dump of a kind whose
  /// first dump wins leaves a file that exists.
  void (*read)(const char* path, void* live, std::size_t size) = nullptr;
  void (*dump)(const char* path, void* live, std::size_t size) = nullptr;

  /// Puts what the readback of `path` wants to find into a live record: the file's own
  /// sensor mode, the number of entries. Null where it wants nothing.
  void (*prepare)(const char* path, void* live) = nullptr;
  std::array<ByteRange, 2> prepared = {};  ///< where
};

/// The largest live record of a file's own size. A longer file is longer than its
/// record. A trial takes several times as much.
inline constexpr std::size_t kLargestLiveRecord = std::size_t{16} << 20;

/// The codec of a kind, or null when there is none.
const Codec* codecOf(std::string_view kind);

/// All of them, in the order of the library's operations.
inline constexpr std::size_t kCodecCount = 27;
const std::array<Codec, kCodecCount>& allCodecs();

/// Bytes of the live record for the file at `path`. One that is missing or no regular
/// file has none.
std::size_t liveSize(const Codec& codec, const std::string& path);

}  // namespace simrec
