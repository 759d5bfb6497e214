#include "core/xml_printer.h"

#include <camx/memory.h>

#include <cstring>

#include "core/log.h"
#include "core/number_text.h"

namespace simulation {

void XmlPrinter::pushBytes(const std::uint8_t* bytes, std::size_t count) {
  constexpr std::size_t kBytesBlock = 4096;
  beginText();
  while (count > 0) {
    const std::size_t part = std::min(count, kBytesBlock);
    end_ = writeItems(makeRoom(kBytesBlock * kByteItemRoom), bytes, part);
    bytes += part;
    count -= part;
  }
}

void XmlPrinter::pushCharacter(char character) {
  beginText();
  Putc(character);
}

tinyxml2::XMLError XmlPrinter::finish() {
  flush();
  if (!file_->valid()) return tinyxml2::XML_ERROR_FILE_COULD_NOT_BE_OPENED;
  const bool closed = file_->close();
  return closed && !failed_ ? tinyxml2::XML_SUCCESS : tinyxml2::XML_ERROR_FILE_READ_ERROR;
}

void XmlPrinter::Write(const char* data, std::size_t size) {
  while (size > 0) {
    makeRoom(1);
    const auto room = static_cast<std::size_t>(buffer_.data() + buffer_.size() - end_);
    const std::size_t part = size < room ? size : room;
    std::memcpy(end_, data, part);
    end_ += part;
    data += part;
    size -= part;
  }
}

void XmlPrinter::Putc(char character) { Write(&character, 1); }

void XmlPrinter::flush() {
  if (!file_) file_.emplace(open(path_, O_WRONLY | O_CREAT | O_TRUNC, 0666));
  const auto size = static_cast<std::size_t>(end_ - buffer_.data());
  failed_ = failed_ || !writeAll(*file_, buffer_.data(), size);
  end_ = buffer_.data();
}

std::unique_ptr<XmlPrinter> newXmlPrinter(const char* path) {
  return std::unique_ptr<XmlPrinter>(new (0, 0, nullptr, 0) XmlPrinter(path));
}

void finishAndLog(XmlPrinter& printer, const char* path, int successLevel) {
  const tinyxml2::XMLError error = printer.finish();
  if (error == tinyxml2::XML_SUCCESS) {
    SimulationLog(successLevel, "dump %s success", path);
  } else {
    SimulationLog(kError, "dump %s failed, Error: %s", path,
                  tinyxml2::XMLDocument::ErrorIDToName(error));
  }
}

}  // namespace simulation
