#include "simrec/derivation.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>

#include "core/raw_file.h"
#include "simrec/content.h"
#include "simrec/error.h"
#include "simrec/provenance.h"
#include "simrec/record.h"
#include "simrec/room.h"
#include "simrec/selection.h"
#include "simrec/staging.h"
#include "simrec/text.h"
#include "simrec/xml_writer.h"

namespace simrec {
namespace {

using catalogue::Format;
using simulation::FileDescriptor;

[[noreturn]] void failWith(const std::string& path) {
  throw Error(path + ": " + std::strerror(errno));
}

/// Names of folders that mean something else.
void checkName(const Store& store, const std::string& name) {
  const bool special = name.empty() || name == "tmp" || name == "tmp_asd" || name == kStagedName;
  const bool record = name.rfind(catalogue::kRecordPrefix, 0) == 0;  // would stand in its way
  if (special || record || name[0] == '.' || name.find('/') != std::string::npos) {
    throw Error("'" + name + "' is no name for a capture");
  }
  struct stat status;
  if (lstat((store.data() + "/" + name).c_str(), &status) == 0) {
    throw Error("there is a '" + name + "' in " + store.data() + " already");
  }
  if (errno != ENOENT) failWith(store.data() + "/" + name);
}

void writeNew(const std::string& path, const std::string& bytes) {
  FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (!file.valid() || !writeAll(file, bytes.data(), bytes.size()) || !file.close()) {
    failWith(path);
  }
}

void patch(std::string& bytes, const Values& values) {
  for (const Value& value : values) {
    if (const Number* const number = value.number()) {
      std::memcpy(&bytes[value.member->offset], &number->integer, sizeOf(value.member->type));
    } else {
      const auto& floats = std::get<std::vector<float>>(value.list()->values);
      std::memcpy(bytes.data(), floats.data(), floats.size() * sizeof(float));
    }
  }
}

/// Writes `record`, changed, as the library would.
void writeChanged(Record record, const std::vector<const Assignment*>& changes,
                  const std::string& path) {
  if (!record.problems.empty()) {
    throw Error(record.file.name + " can't be changed: " + record.problems.front());
  }
  for (const Assignment* const change : changes) apply(*change, record.values);
  const auto& kind = *record.file.parts->kind;
  if (kind.format == Format::kXml) return writeXmlRecord(kind, record.values, path);
  patch(record.bytes, record.values);
  writeNew(path, record.bytes);
}

/// The new capture while it is made, in simrec's own folder. What is not moved to its place is
/// deleted.
class Draft {
 public:
  explicit Draft(const Room& room) : room_(room), folder_(room.folder().make(kDraftFolder)) {
    if (!folder_.names().empty()) throw Error(folder_.path() + ": something else is in it");
  }
  ~Draft() {
    try {
      deleteFolder(room_.folder(), kDraftFolder);
    } catch (const Error&) {
      // The next one who works here does it.
    }
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const Directory& folder() const { return folder_; }
  std::string path(const std::string& name) const { return folder_.pathOf(name); }

  void moveTo(const std::string& name) const {
    folder_.syncFileSystem();
    room_.folder().move(kDraftFolder, room_.data(), name);
    try {
      room_.data().sync();
    } catch (const Error&) {
      room_.data().move(name, room_.folder(), kDraftFolder);
      throw;
    }
  }

 private:
  const Room& room_;
  const Directory folder_;
};

void writeProvenance(const Derivation& derivation, const std::string& path) {
  Json changes = Json::array();
  for (const Assignment& change : derivation.changes) changes.push_back(asUtf8(change.text));
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  Json json = {{"schema", 1}};
  setName(json, "capture", "captureBytes", derivation.from.name);
  json["changes"] = changes;
  json["made"] = utcTime(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
  writeNew(path, dump(json) + "\n");
}

/// The changes of a file's kind; none for another camera's.
std::vector<const Assignment*> changesOf(const File& file, const Derivation& derivation) {
  std::vector<const Assignment*> changes;
  if (!Selection({}, derivation.camera).takes(*file.parts)) return changes;
  for (const Assignment& change : derivation.changes) {
    if (change.kind == file.parts->kind) changes.push_back(&change);
  }
  return changes;
}

void checkChanges(const std::vector<File>& files, const Derivation& derivation) {
  for (const Assignment& change : derivation.changes) {
    const bool meant = std::any_of(files.begin(), files.end(), [&](const File& file) {
      return change.kind == file.parts->kind && Selection({}, derivation.camera).takes(*file.parts);
    });
    if (!meant) {
      throw Error("'" + change.text + "': no " + change.kind->name + " in " + derivation.from.name);
    }
  }
}

std::vector<std::string> fill(const Draft& draft, const std::vector<File>& files,
                              const Derivation& derivation) {
  std::vector<std::string> changed;
  const Directory from(derivation.from.path);
  for (const File& file : files) {
    const auto changes = changesOf(file, derivation);
    if (changes.empty()) {
      copyFile(from, file.name, draft.folder(), file.name);
    } else {
      writeChanged(readRecord(derivation.from.path, file), changes, draft.path(file.name));
      changed.push_back(file.name);
    }
  }
  writeProvenance(derivation, draft.path(kProvenanceFile));
  return changed;
}

}  // namespace

Derived derive(const Store& store, const Derivation& derivation) {
  checkName(store, derivation.name);
  std::vector<File> files = Selection().of(filesOf(derivation.from));
  // Refuses what can't be looked at: a copy without it is none.
  std::vector<std::string> others = leftOut(derivation.from, files);
  files.erase(std::remove_if(files.begin(), files.end(),
                             [](const File& file) { return file.type != FileType::kRegular; }),
              files.end());
  checkChanges(files, derivation);
  const Room room(store.data());
  const Draft draft(room);
  std::vector<std::string> changed = fill(draft, files, derivation);
  draft.moveTo(derivation.name);
  return {std::move(changed), std::move(others)};
}

}  // namespace simrec
