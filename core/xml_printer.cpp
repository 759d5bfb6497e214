#include "core/xml_printer.h"

#include <cstring>

namespace simulation {

bool XmlPrinter::Visit(const tinyxml2::XMLText& text) {
  if (text.GetUserData() != kPlainText) return XMLPrinter::Visit(text);
  PushText("");  // as for any text: the tag before it ends, the one after it follows at once
  Write(text.Value());
  return true;
}

bool XmlPrinter::finish() {
  failed_ = failed_ || !writeAll(file_, buffer_.data(), used_);
  used_ = 0;
  return !failed_;
}

void XmlPrinter::Write(const char* data, std::size_t size) {
  if (size > buffer_.size() - used_) finish();
  if (size > buffer_.size()) {
    failed_ = failed_ || !writeAll(file_, data, size);
    return;
  }
  std::memcpy(buffer_.data() + used_, data, size);
  used_ += size;
}

void XmlPrinter::Putc(char character) { Write(&character, 1); }

}  // namespace simulation
