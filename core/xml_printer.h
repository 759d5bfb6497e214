// Writes an XML record element by element, in tinyxml2's own form but without a
// document in memory: numbers go straight into the buffer that the file gets.
// Belongs to the call that made it.
#pragma once

#include <tinyxml2.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "core/raw_file.h"

namespace simulation {

class XmlPrinter final : public tinyxml2::XMLPrinter {
 public:
  /// `path` must outlive the printer. The file is created, or emptied, when there
  /// is something to write to it; elements may be written even if that fails.
  explicit XmlPrinter(const char* path) : path_(path) {}

  /// The text of the open element, or a part of it: a number as `write` (see
  /// number_text.h) forms it.
  template <typename Write, typename Value>
  void pushNumber(Write write, Value value) {
    beginText();
    end_ = write(makeRoom(kNumberRoom), value);
  }

  /// The same for a list of `count` numbers: write(out, i) writes number i with one
  /// blank behind it and returns the end.
  template <typename Write>
  void pushNumbers(std::size_t count, Write write) {
    beginText();
    for (std::size_t i = 0; i < count;) {
      const std::size_t stop = std::min(count, i + kBlock);
      char* out = makeRoom(kBlock * kNumberRoom);
      for (; i < stop; ++i) out = write(out, i);
      end_ = out;
    }
  }

  /// The same for bytes, which come in very long lists.
  void pushBytes(const std::uint8_t* bytes, std::size_t count);

  /// A character that needs no escaping, as a part of the open element's text.
  void pushCharacter(char character);

  /// Writes what is still in memory and closes the file. Success means that the
  /// file took every byte: a full disk is XML_ERROR_FILE_READ_ERROR, tinyxml2's
  /// nearest name, and may leave a part of the document behind.
  tinyxml2::XMLError finish();

 protected:
  using XMLPrinter::Write;
  void Write(const char* data, std::size_t size) override;
  void Putc(char character) override;

 private:
  /// More than any number with its blank takes.
  static constexpr std::size_t kNumberRoom = 64;
  /// Numbers that are written with one look at the room for them.
  static constexpr std::size_t kBlock = 64;

  void beginText() { PushText(""); }
  char* makeRoom(std::size_t size) {
    if (static_cast<std::size_t>(buffer_.data() + buffer_.size() - end_) < size) flush();
    return end_;
  }
  /// Writes the buffer, to a file that is opened for the first of it.
  void flush();

  const char* path_;
  std::optional<FileDescriptor> file_;
  bool failed_ = false;
  std::array<char, 65536> buffer_;
  char* end_ = buffer_.data();
};

/// A printer, accounted for by the pipeline. Null when there is no memory.
std::unique_ptr<XmlPrinter> newXmlPrinter(const char* path);

/// Finishes, and says how the dump ended: a success at `successLevel`.
void finishAndLog(XmlPrinter& printer, const char* path, int successLevel);

}  // namespace simulation
