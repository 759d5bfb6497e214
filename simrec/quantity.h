// Ages, numbers and sizes as people give them. No state.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace simrec {

/// "30s", "10m", "8h", "7d" in nanoseconds; none for anything else.
std::optional<std::int64_t> ageFrom(std::string_view text);

/// "20"; none for anything else.
std::optional<std::uint64_t> countFrom(std::string_view text);

/// Bytes, or "500K", "200M", "2G" in powers of 1024; none for anything else.
std::optional<std::uint64_t> sizeFrom(std::string_view text);

}  // namespace simrec
