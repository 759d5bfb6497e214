#include "simrec/export/export_log.h"

#include <cerrno>
#include <cstring>
#include <tuple>

#include "simrec/error.h"

namespace simrec {
namespace {

/// Without line feeds and tabs, and in the same order as the name itself: what stands for them
/// begins with the least of all characters that are left.
std::string escaped(const std::string& name) {
  std::string text;
  for (const char character : name) {
    if (character > '\0' && character <= '\n') {
      text += '\x01';
      text += static_cast<char>('0' + character);
    } else {
      text += character;
    }
  }
  return text;
}

}  // namespace

std::string headOfExportLog(const std::string& format, bool lists) {
  return "simrec export 1 " + format + (lists ? " with lists" : "");
}

std::string readExportHead(const std::string& folder) {
  std::ifstream log(folder + "/" + kExportLog);
  std::string head;
  std::getline(log, head);
  return head;
}

ExportLog::ExportLog(const std::string& folder, const std::string& head, const std::string& older)
    : path_(folder + "/" + kExportLog), olderPath_(older + "/" + kExportLog) {
  log_.open(path_, std::ios::binary);
  log_ << head << '\n';
  if (older.empty()) return;
  older_.open(olderPath_, std::ios::binary);
  std::string line;
  std::getline(older_, line);
  readNext();
}

bool ExportLog::isNew(const Capture& capture, const File& file) {
  const Entry entry = {escaped(capture.name), escaped(file.name),
                       std::to_string(file.modified) + ' ' + std::to_string(file.bytes)};
  const auto key = std::tie(entry.capture, entry.file);
  while (next_ && std::tie(next_->capture, next_->file) < key) {
    write(*next_);
    readNext();
  }
  const bool known = next_ && std::tie(next_->capture, next_->file) == key;
  const bool same = known && next_->rest == entry.rest;
  if (known) readNext();
  write(entry);
  return !same;
}

void ExportLog::end() {
  for (; next_; readNext()) write(*next_);
  log_.close();
  if (!log_) throw Error(path_ + ": " + std::strerror(errno));
}

void ExportLog::readNext() {
  next_.reset();
  std::string line;
  if (!std::getline(older_, line)) {
    if (older_.bad()) throw Error(olderPath_ + ": can't be read");
    return;
  }
  const std::size_t file = line.find('\t'), rest = line.rfind('\t');
  if (file == rest) throw Error(olderPath_ + ": damaged; export without --append");
  next_ =
      Entry{line.substr(0, file), line.substr(file + 1, rest - file - 1), line.substr(rest + 1)};
}

void ExportLog::write(const Entry& entry) {
  log_ << entry.capture << '\t' << entry.file << '\t' << entry.rest << '\n';
}

}  // namespace simrec
