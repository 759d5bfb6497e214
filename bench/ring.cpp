#include "bench/ring.h"

#include <simulation/request_map.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace bench {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = "/data/vendor/camera";
constexpr int kSlots = 50;
constexpr char kImage[] = "IMG_0001";

fs::path dumpFolder(std::uint64_t request) {
  return kRoot / "tmp" / ("RequestID[" + std::to_string(request) + "]_camId[0]");
}

}  // namespace

Ring::Ring(int folders) : frames_(1) {
  for (const auto& entry : fs::directory_iterator(kRoot)) fs::remove_all(entry.path());
  fs::create_directories(kRoot / "tmp");
  fs::create_directories(kRoot / "tmp_asd");
  for (int i = 0; i < folders; ++i) fs::create_directory(dumpFolder(1000000U + unsigned(i)));
  for (int i = 0; i < kSlots; ++i) {
    prepare(false);
    insert();
  }
}

void Ring::prepare(bool dumps) {
  ++request_;
  frames_[0] = static_cast<unsigned int>(request_);
  if (!dumps) return;
  fs::remove_all(kRoot / kImage);
  fs::create_directory(kRoot / kImage);
  fs::create_directory(dumpFolder(request_));
  for (const char* name : {"/a.bin", "/b.bin", "/c.xml"}) {
    std::ofstream(dumpFolder(request_).string() + name) << "dump";
  }
}

void Ring::insert() {
  insertForChi(request_, request_);
  insertForCamx(request_, request_, 0);
  addForImageName(&frames_, kImage);
}

}  // namespace bench
