// The captures of a data folder by name: of a hundred thousand, not more than a few MB.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simrec/store.h"

namespace simrec {

class CaptureList {
 public:
  /// What Store::captures() gives, in its order. Throws Error where the data folder can't be read.
  explicit CaptureList(std::string data);

  std::size_t size() const { return begins_.size(); }
  Capture operator[](std::size_t index) const;

  /// By the bytes of their names from now on, whatever they are.
  void sortByName();

 private:
  void add(char kind, std::string_view name);
  /// Whether anything is staged.
  bool readImages();
  void readRequests();

  std::string data_;
  std::string entries_;  ///< of each a letter for its kind, and its name with a NUL behind it
  std::vector<std::uint32_t> begins_;
};

/// Whether a folder of that name can be a capture: the pipeline's scratch folders and hidden ones
/// are none. The name is not empty.
bool mayBeImage(std::string_view name);

/// The capture of a request of that data folder.
Capture requestCapture(const std::string& data, const catalogue::RequestFolder& parts);

}  // namespace simrec
