#include "simrec/diagnosis.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "simrec/error.h"
#include "simrec/overview.h"
#include "simrec/regular_file.h"
#include "simrec/replaceable.h"
#include "simrec/text.h"

namespace simrec {
namespace {

using catalogue::Kind;
using End = Trial::End;

bool tellsSuccess(const LogLine& line) { return line.text.find("success") != std::string::npos; }

/// Whether a file that has nothing to replace, such as statistics of no regions, is sound.
bool isSoundlyEmpty(const Trial& trial, const Record& record) {
  return record.problems.empty() && std::any_of(trial.log.begin(), trial.log.end(), tellsSuccess);
}

/// What a readback that returned has replaced of what it could.
Readback extentOf(const Trial& trial, const Record& record) {
  const auto& replaced = trial.replaced;
  const bool everything =
      !replaced.empty() && std::memchr(replaced.data(), 0, replaced.size()) == nullptr;
  if (everything) return Readback::kWhole;
  const std::vector<std::uint8_t> wanted = replaceableBytes(record, replaced.size());
  std::uint8_t left = 0, any = 0;  // without branches: records may have millions of bytes
  for (std::size_t i = 0; i < replaced.size(); ++i) {
    any |= replaced[i];
    left |= static_cast<std::uint8_t>(wanted[i] & ~replaced[i]);
  }
  if (left == 0 && (any != 0 || isSoundlyEmpty(trial, record))) return Readback::kWhole;
  return any != 0 ? Readback::kPartly : Readback::kNone;
}

Readback verdictOf(const Trial& trial, const Record& record) {
  switch (trial.end) {
    case End::kReturned:
      return extentOf(trial, record);
    case End::kThrew:
      return Readback::kThrows;
    case End::kOverflowed:
      return Readback::kOverflows;
    case End::kTimedOut:
      return Readback::kHangs;
    case End::kAborted:
    case End::kOutOfMemory:
    case End::kCrashed:
      break;
  }
  return Readback::kAborts;
}

/// A value that a dump writes and that a readback's conversions refuse.
std::string refusedIn(const Values& values, const std::string& path) {
  for (const Value& value : values) {
    const std::string name = path + value.member->name;
    std::string refused;
    if (const Number* const number = value.number()) {
      if (number->isFloat() && std::fpclassify(number->single) == FP_SUBNORMAL) {
        refused = name + " is denormal: no conversion takes it";
      } else if (value.member->type == catalogue::Type::kUint64 && number->integer >> 63 != 0) {
        refused = name + " is 2^63 or more: no conversion takes it";
      }
    } else if (const auto* const list = value.list()) {
      const auto* const floats = std::get_if<std::vector<float>>(&list->values);
      for (std::size_t i = 0; floats != nullptr && i < floats->size(); ++i) {
        if (std::fpclassify((*floats)[i]) != FP_SUBNORMAL) continue;
        refused = fmt::format("{}[{}] is denormal: no conversion takes it", name, i);
        break;
      }
    } else if (const Values* const members = value.members()) {
      refused = refusedIn(*members, name + ".");
    } else {
      for (std::size_t i = 0; refused.empty() && i < value.items()->size(); ++i) {
        refused = refusedIn((*value.items())[i], fmt::format("{}[{}].", name, i));
      }
    }
    if (!refused.empty()) return refused;
  }
  return "";
}

/// What the library says itself, where nothing else tells.
std::string logged(const Trial& trial) {
  constexpr int kError = 6;
  for (const LogLine& line : trial.log) {
    if (line.level == kError && !tellsSuccess(line))
      return ": the log says \"" + printable(line.text) + '"';
  }
  return "";
}

/// Names with `before` in front; no names, no words.
std::string listed(const char* before, const std::vector<std::string>& names) {
  constexpr std::size_t kMostNames = 5;
  std::string words;
  for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i) {
    words += (i == 0 ? before : ", ") + names[i];
  }
  if (names.size() > kMostNames) {
    words += " and " + counted(names.size() - kMostNames, "more member");
  }
  return words;
}

/// What happened, in words, for a file at which nothing odd can be seen.
std::string wordsFor(const Trial& trial, Readback readback, const Record& record) {
  switch (readback) {
    case Readback::kThrows: {
      std::string refused = refusedIn(record.values, "");
      if (!refused.empty()) return refused;
      std::vector<std::string> left = membersLeft(record, trial.replaced);
      left.resize(std::min<std::size_t>(left.size(), 1));
      return "a readback throws " + trial.exception + listed(" before it replaces ", left);
    }
    case Readback::kAborts:
      return trial.end == End::kOutOfMemory ? "a readback takes more memory than there is"
                                            : "a readback ends the camera process";
    case Readback::kOverflows:
      return "a readback writes past the caller's record";
    case Readback::kHangs:
      return "a readback does not come to an end";
    case Readback::kPartly:
      return "a readback replaces only a part" +
             listed(", not ", membersLeft(record, trial.replaced)) + logged(trial);
    case Readback::kNone:
      return "a readback replaces nothing" + logged(trial);
    case Readback::kWhole:
    case Readback::kUnread:
      break;
  }
  return "";
}

Severity severityOf(Readback readback) {
  switch (readback) {
    case Readback::kWhole:
    case Readback::kPartly:
      return Severity::kWarning;
    case Readback::kUnread:
      return Severity::kNote;
    default:
      return Severity::kError;
  }
}

bool isTuningMode(const Kind& kind) {
  return !kind.members.empty() && kind.members[0].name == std::string_view("sensorMode");
}

/// What a readback makes of a size that is not the record's, if that is the problem.
std::string sizeWords(const std::string& problem, const Record& record) {
  const Kind& kind = *record.file.parts->kind;
  if (problem != sizeProblem(kind, record.file.bytes) || kind.bytes == 0) return "";
  if (record.file.bytes > kind.bytes) return ": what follows the record is ignored";
  return isTuningMode(kind) ? ": zeros fill it up" : "";
}

/// The size that more than half of the other files of a kind have.
std::optional<std::uint64_t> usualSize(const SizeSurvey& sizes, const Kind* kind) {
  const auto found = sizes.find(kind);
  if (found == sizes.end()) return std::nullopt;
  std::size_t all = 0;
  for (const auto& [size, count] : found->second) all += count;
  for (const auto& [size, count] : found->second) {
    if (2 * count > all) return size;
  }
  return std::nullopt;
}

std::string absolutePath(const Capture& capture, const File& file) {
  std::error_code ignored;
  const auto folder = std::filesystem::absolute(capture.path, ignored);
  return (folder / file.name).string();
}

}  // namespace

const char* nameOf(Severity severity) {
  constexpr const char* kNames[] = {"error", "warning", "note"};
  return kNames[static_cast<int>(severity)];
}

const char* nameOf(Readback readback) {
  constexpr const char* kNames[] = {"whole",  "partly",    "none",  "throws",
                                    "aborts", "overflows", "hangs", "unread"};
  return kNames[static_cast<int>(readback)];
}

SizeSurvey surveySizes(const Store& store, const std::function<void()>& looked) {
  SizeSurvey sizes;
  std::vector<Capture> captures;
  try {
    captures = store.captures();
  } catch (const Error&) {  // a capture that is given by its path may be sound all the same
  }
  for (const Capture& capture : captures) {
    try {
      for (const File& file : unsortedFilesOf(capture)) {
        const bool sized = file.parts && file.parts->kind->bytes == 0 &&
                           file.parts->kind->format == catalogue::Format::kBinary;
        if (sized && file.type == FileType::kRegular) ++sizes[file.parts->kind][file.bytes];
      }
    } catch (const Error&) {  // examining it will tell
    }
    looked();
  }
  return sizes;
}

std::vector<Finding> Doctor::examine(const Capture& capture,
                                     const std::function<void()>& examined) {
  std::vector<Finding> findings;
  try {
    const std::vector<File> files = filesOf(capture);
    for (const File& file : files) {
      examineFile(capture, file, findings);
      examined();
    }
    const MissingRecords missing = missingRecords(files);
    for (const std::string& name : missing.files) {
      findings.push_back({name, Severity::kWarning, kMissing, Readback::kNone});
    }
    if (missing.more > 0) {
      findings.push_back({"", Severity::kWarning, wordsForMore(missing), Readback::kNone});
    }
  } catch (const Error& error) {
    findings.push_back({"", Severity::kError, printable(error.what()), Readback::kNone});
  }
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& a, const Finding& b) { return a.file < b.file; });
  return findings;
}

void Doctor::examineFile(const Capture& capture, const File& file, std::vector<Finding>& findings) {
  const auto tell = [&](Severity severity, const std::string& what, Readback readback) {
    findings.push_back({file.name, severity, what, readback});
  };
  if (!file.isRecord()) {
    return tell(Severity::kNote, "no readback looks for a file of this name", Readback::kUnread);
  }
  if (const char* const what = problemOf(file.type)) {
    return tell(Severity::kError, what,
                file.type == FileType::kSpecial ? Readback::kHangs : Readback::kNone);
  }
  const Kind* const kind = file.parts->kind;
  const bool xml = kind->format == catalogue::Format::kXml;
  const Record record = readRecord(capture.path, file, {xml, false});
  if (!record.opened) {
    return tell(Severity::kError, record.problems.front(), Readback::kNone);
  }
  const Trial trial = trials_.tryReadback(*codecOf(kind->name), absolutePath(capture, file));
  const Readback readback = verdictOf(trial, record);
  for (const std::string& problem : record.problems) {
    tell(severityOf(readback), problem + sizeWords(problem, record), readback);
  }
  if (record.problems.empty() && readback != Readback::kWhole) {
    tell(severityOf(readback), wordsFor(trial, readback, record), readback);
  }
  const auto usual = usualSize(sizes_, kind);
  if (usual && *usual != file.bytes) {
    tell(Severity::kNote,
         fmt::format("{}, but most files of its kind have {}", counted(file.bytes, "byte"), *usual),
         readback);
  }
}

}  // namespace simrec
