// Random members of records, the same in every run.
#pragma once

#include <cstddef>
#include <cstring>
#include <random>

#include "bench/family.h"

namespace bench {

class Random {
 public:
  explicit Random(std::size_t seed) : engine_(seed) {}

  float real(float from, float to) {
    return std::uniform_real_distribution<float>(from, to)(engine_);
  }

  template <typename Integer>
  Integer integer(Integer from, Integer to) {
    return static_cast<Integer>(std::uniform_int_distribution<long long>(
        static_cast<long long>(from), static_cast<long long>(to))(engine_));
  }

  Bytes bytes(std::size_t size) {
    Bytes result(size);
    for (char& byte : result) byte = static_cast<char>(engine_());
    return result;
  }

 private:
  std::mt19937_64 engine_;
};

template <typename Record>
Bytes bytesOf(const Record& record) {
  Bytes result(sizeof record);
  std::memcpy(result.data(), &record, sizeof record);
  return result;
}

/// `make(random)` for each input.
template <typename Make>
std::vector<Bytes> inputsOf(std::size_t count, Make make) {
  std::vector<Bytes> inputs;
  for (std::size_t seed = 0; seed < count; ++seed) {
    Random random(seed);
    inputs.push_back(make(random));
  }
  return inputs;
}

}  // namespace bench
