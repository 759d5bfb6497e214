// A data folder as captures, and captures as files: what folders tell without opening a file.
// Nothing is kept between calls, so a folder that changes meanwhile is seen as it is. May be used
// from several threads.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/file_name.h"

namespace simrec {

enum class FileType {
  kRegular,  ///< or a link to one
  kDanglingLink,
  kUnreachable,  ///< its folder does not let it be looked at
  kFolder,
  kSpecial,  ///< a FIFO, a device, a socket: never opened
};

/// An entry of a capture's folder.
struct File {
  std::string name;
  std::optional<catalogue::FileName> parts;  ///< none: no readback looks for such a name
  FileType type = FileType::kRegular;
  std::uint64_t bytes = 0;
  std::int64_t modified = 0;  ///< nanoseconds since 1970

  bool isRecord() const { return parts.has_value(); }
  /// What can't be looked at has no time.
  bool hasTime() const { return type != FileType::kDanglingLink && type != FileType::kUnreachable; }
};

enum class CaptureKind {
  kImage,    ///< a folder of an image, or one that the caller named
  kRequest,  ///< still in "tmp"
  kStaged,   ///< straight under the data folder, where readbacks look
  kFolder,   ///< given by its path
};

struct Capture {
  std::string name;
  std::string path;
  CaptureKind kind = CaptureKind::kFolder;
  std::optional<catalogue::RequestFolder> request = {};
};

/// The word for a kind: "image", "request", "staged", "folder".
const char* nameOf(CaptureKind kind);

inline constexpr char kStagedName[] = "staged";
inline constexpr char kJournalFolder[] = ".simrec";        ///< below the data folder
inline constexpr char kProvenanceFile[] = ".simrec.json";  ///< in a capture; no record

class Store {
 public:
  explicit Store(std::string data);

  const std::string& data() const { return data_; }

  /// Images, then requests, each by name (requests by number), then what is staged.
  /// Folders without a name of a record's kind in them are among them: nobody looked. Throws
  /// Error where the data folder can't be read.
  std::vector<Capture> captures() const;

  /// The capture that a person names: an image, "57/0", "staged" or a path with a '/' to any
  /// folder. Throws Error when there is none, or it can't be looked at.
  Capture find(const std::string& name) const;

 private:
  std::string data_;
};

/// What is in the capture's folder, by name. Of the data folder itself (what is staged) only
/// names that begin as records do. Throws Error where the folder can't be read.
std::vector<File> filesOf(const Capture& capture);

/// The records of one kind alone; nothing is asked about the other files.
std::vector<File> filesOf(const Capture& capture, const catalogue::Kind& kind);

/// The same as the first, without any order.
std::vector<File> unsortedFilesOf(const Capture& capture);

}  // namespace simrec
