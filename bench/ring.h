// The calls of one request to the request map, from its creation to the move of
// an older one's dumps.
#pragma once

#include <cstdint>
#include <vector>

namespace bench {

class Ring {
 public:
  /// Puts `folders` other dump folders beside those of the requests.
  explicit Ring(int folders);

  /// Makes the dump folder of the next request, with files in it if `dumps`.
  void prepare(bool dumps);

  /// The calls for that request. The ring is full: the oldest request leaves it,
  /// and its dumps are moved to the folder of their image.
  void insert();

 private:
  std::uint64_t request_ = 0;
  std::vector<unsigned int> frames_;
};

}  // namespace bench
