#include <fcntl.h>
#include <simulation/records.h>
#include <unistd.h>

#include <cstring>

#include "bench/plain/files.h"
#include "bench/plain/plain.h"

namespace bench::plain {
namespace {

constexpr int kDumpFlags = O_RDWR | O_CREAT;

/// `liveHead` leading bytes are never replayed.
void stagedFile(const Call& call, const std::string& path, void* data, std::size_t size,
                std::size_t liveHead) {
  if (isDump(call)) {
    writeFile(path, data, size, kDumpFlags);
    return;
  }
  Bytes staging(size);
  if (readFile(path, staging.data(), size) != size) return;
  std::memcpy(static_cast<char*>(data) + liveHead, staging.data() + liveHead, size - liveHead);
}

}  // namespace

void staged(Call& call, const char* name, void* data, std::size_t size) {
  stagedFile(call, requestFile(call, name, ".bin"), data, size, 0);
}

void direct(Call& call, const char* name, void* data, std::size_t size) {
  const std::string path = requestFile(call, name, ".bin");
  if (isDump(call)) {
    writeFile(path, data, size, kDumpFlags);
  } else {
    readFile(path, data, size);
  }
}

void faceRoi(Call& call, void* data) {
  stagedFile(call, requestFile(call, "AWB_FaceROI", ".bin"), data, 1784, 8);
}

void ispConfig(Call& call, void* data) {
  staged(call, "AWB_ISPAWBBGStatsConfig_preview", data, kConfigSize);
}

void tuningMode(Call& call, void* data) {
  const std::string path = requestFile(call, "AWB_TuningMode", ".bin");
  if (isDump(call)) {
    writeFile(path, data, 60, kDumpFlags);
    return;
  }
  char saved[60] = {};
  readFile(path, saved, sizeof saved);
  const char* const live = static_cast<const char*>(data);
  const bool fits =
      std::memcmp(saved + 16, live + 16, 2) == 0 && std::memcmp(saved + 24, live + 24, 4) == 0;
  if (fits) std::memcpy(data, saved, sizeof saved);
}

void frameControl(Call& call, void* data) { staged(call, "AWB_AWBFrameControlData", data, 888); }

void faceDection(Call& call, void* data) { staged(call, "ZOAWB_FaceDectionInfo", data, 964); }

void faceColor(Call& call, void* data) { staged(call, "ZOAWB_FaceColorDectionInfo", data, 204); }

void fdRoi(Call& call, void* data) {
  const std::string path = requestFile(call, "FACE_FaceROI", ".bin");
  if (isDump(call) && access(path.c_str(), F_OK) == 0) return;
  stagedFile(call, path, data, kFdRoiSize, 8);
}

void faceResult(Call& call, void* data) {
  const std::string path = requestFile(call, "FACE_FDResult", ".bin");
  if (isDump(call) && access(path.c_str(), F_OK) == 0) return;
  std::size_t offset = 0;
  for (const std::size_t size : kFaceBlocks) {
    char* const block = static_cast<char*>(data) + offset;
    if (isDump(call)) {
      writeFile(path, block, size, kDumpFlags | O_APPEND);
    } else {
      readFile(path, block, size, static_cast<long>(offset));
    }
    offset += size;
  }
}

void acbPlanes(Call& call, void* data) {
  const std::string path = namedFile(call, "ACB_acb", ".bin");
  char* const chroma = static_cast<char*>(data) + kAcbLumaSize;
  const int file = isDump(call) ? open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)
                                : open(path.c_str(), O_RDONLY);
  if (file < 0) return;
  const auto move = [&](char* plane, std::size_t size) {
    return isDump(call) ? write(file, plane, size) : read(file, plane, size);
  };
  if (move(static_cast<char*>(data), kAcbLumaSize) > 0) move(chroma, kAcbSize - kAcbLumaSize);
  close(file);
}

}  // namespace bench::plain
