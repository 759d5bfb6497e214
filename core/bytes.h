// Members of the caller's records, which the library knows by offset only: no
// alignment and no type is assumed of the memory.
#pragma once

#include <cstddef>
#include <cstring>

namespace simulation {

template <typename Value>
Value load(const void* record, std::size_t offset = 0) {
  Value value;
  std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
  return value;
}

template <typename Value>
void store(void* record, std::size_t offset, Value value) {
  std::memcpy(static_cast<char*>(record) + offset, &value, sizeof value);
}

}  // namespace simulation
