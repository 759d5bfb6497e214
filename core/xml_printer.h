// Prints a document into a file, as tinyxml2 does but without the stream in
// between, and writes a long list of numbers as it stands.
#pragma once

#include <tinyxml2.h>

#include <array>
#include <cstddef>

#include "core/raw_file.h"

namespace simulation {

/// The mark (user data) of a text node that holds nothing to be escaped.
inline constexpr char kPlainText[] = "plain";

/// For one document. The file stays the caller's and must outlive the printer.
class XmlPrinter final : public tinyxml2::XMLPrinter {
 public:
  explicit XmlPrinter(const FileDescriptor& file) : file_(file) {}

  using XMLPrinter::Visit;
  bool Visit(const tinyxml2::XMLText& text) override;

  /// Writes what is still in memory. True when the file took every byte.
  bool finish();

 protected:
  using XMLPrinter::Write;
  void Write(const char* data, std::size_t size) override;
  void Putc(char character) override;

 private:
  const FileDescriptor& file_;
  std::array<char, 4096> buffer_;
  std::size_t used_ = 0;
  bool failed_ = false;
};

}  // namespace simulation
