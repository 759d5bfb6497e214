// A file that appears whole under its name, or not at all: written beside it, without a name
// where the file system can, then renamed. What
// fails throws Error, which names the file; what was there before then stays.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/raw_file.h"

namespace simrec {

class NewFile {
 public:
  /// A link is followed. Anything else but a regular file is not replaced.
  explicit NewFile(const std::string& path);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void write(std::string_view text);
  void finish();

  std::uint64_t bytes() const { return bytes_; }

 private:
  /// Gives a file without a name that of a draft.
  bool name();
  [[noreturn]] void fail() const;

  std::string shown_, path_, draft_;
  std::optional<simulation::FileDescriptor> file_;
  std::uint64_t bytes_ = 0;
};

}  // namespace simrec
