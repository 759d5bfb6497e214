#include "bench/contest.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>

#include "bench/clock.h"
#include "bench/plain/plain.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = "/data/vendor/camera";

[[noreturn]] void giveUp(const std::string& message) {
  std::cerr << "bench: " << message << '\n';
  std::exit(1);
}

unsigned int requestOf(Side side, unsigned int input) { return 1000U * (side + 1) + input; }

fs::path requestFolder(Side side, unsigned int input) {
  return kRoot / "tmp" /
         ("RequestID[" + std::to_string(requestOf(side, input)) + "]_camId[" +
          std::to_string(input) + "]");
}

Bytes contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) giveUp("there is no " + path.string());
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

std::size_t countFiles(const fs::path& folder) {
  std::error_code missing;
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder, missing), fs::directory_iterator()));
}

}  // namespace

Contest::Contest(Families families) : families_(std::move(families)) {
  for (const auto& entry : fs::directory_iterator(kRoot)) fs::remove_all(entry.path());
  inputs_.resize(families_.front().inputs.size());
  for (auto& times : fastest_) times.assign(inputs_.size(), std::numeric_limits<double>::max());
  for (unsigned int input = 0; input < inputs_.size(); ++input) {
    for (const Side side : {kLibrary, kPlain, kFloor}) {
      inputs_[input].folders[side] = std::to_string(requestOf(side, input));
    }
  }
  plain::forgetLensShading();
  Simulation::m_LscIndex.clear();
  for (unsigned int input = 0; input < inputs_.size(); ++input) {
    run(kLibrary, kDump, input);
    run(kPlain, kDump, input);
    takeFiles(input);
    for (const Side side : {kLibrary, kPlain}) removeDumps(side, inputs_[input]);
  }
  for (const Family& family : families_) live_.push_back(family.inputs.front());
  for (unsigned int input = 0; input < inputs_.size(); ++input) checkReadback(input);
}

/// Finds the files of an input, compares those of the two sides and puts them
/// where a readback looks.
void Contest::takeFiles(unsigned int input) {
  Input& taken = inputs_[input];
  fs::create_directories(requestFolder(kFloor, input));
  const fs::path requestFolders[] = {requestFolder(kLibrary, input), requestFolder(kPlain, input)};
  const fs::path namedFolders[] = {kRoot / taken.folders[kLibrary], kRoot / taken.folders[kPlain]};
  for (const auto& folders : {requestFolders, namedFolders}) {
    if (countFiles(folders[kLibrary]) != countFiles(folders[kPlain])) {
      giveUp("not the same files in " + folders[kPlain].string());
    }
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(folders[kLibrary], missing)) {
      const fs::path name = entry.path().filename();
      File file = {{entry.path(), folders[kPlain] / name, requestFolder(kFloor, input) / name},
                   kRoot / name,
                   contentOf(entry.path())};
      if (contentOf(file.dumped[kPlain]) != file.bytes)
        giveUp("other bytes in " + file.dumped[kPlain]);
      fs::copy_file(file.dumped[kLibrary], file.toRead, fs::copy_options::overwrite_existing);
      staging_.resize(std::max(staging_.size(), file.bytes.size()));
      copy_.resize(staging_.size());
      taken.files.push_back(std::move(file));
    }
  }
  if (taken.files.empty()) giveUp("nothing was dumped");
}

/// What a readback makes of the live records, which begin as another input.
std::vector<Bytes> Contest::replayed(Side side, unsigned int input) {
  for (std::size_t i = 0; i < families_.size(); ++i) {
    live_[i] = families_[i].inputs[(input + 1) % inputs_.size()];
  }
  Simulation::m_LscIndex.clear();
  plain::forgetLensShading();
  run(side, kReadback, input);
  return live_;
}

void Contest::checkReadback(unsigned int input) {
  const std::vector<Bytes> expected = replayed(kPlain, input);
  if (replayed(kLibrary, input) != expected) giveUp("a readback gave another record");
}

Call Contest::callOf(Side side, Direction direction, unsigned int input) const {
  return {{{}, inputs_[input].folders[side].c_str(), static_cast<std::uint32_t>(direction)},
          requestOf(side, input),
          input};
}

void Contest::run(Side side, Direction direction, unsigned int input) {
  if (side == kFloor) {
    runFloor(direction, inputs_[input]);
    return;
  }
  Call call = callOf(side, direction, input);
  for (std::size_t i = 0; i < families_.size(); ++i) {
    Family& family = families_[i];
    Bytes& data = direction == kDump ? family.inputs[input] : live_[i];
    (side == kLibrary ? family.library : family.plain)(call, data.data());
  }
}

void Contest::runFloor(Direction direction, const Input& input) {
  for (const File& file : input.files) {
    const std::size_t size = file.bytes.size();
    ssize_t count;
    if (direction == kDump) {
      std::memcpy(staging_.data(), file.bytes.data(), size);
      const int descriptor = open(file.dumped[kFloor].c_str(), O_WRONLY | O_CREAT, 0777);
      count = write(descriptor, staging_.data(), size);
      close(descriptor);
    } else {
      const int descriptor = open(file.toRead.c_str(), O_RDONLY);
      count = read(descriptor, staging_.data(), size);
      close(descriptor);
      std::memcpy(copy_.data(), staging_.data(), size);
    }
    // The spectral sensor's file is shared by all inputs: its size is not each input's own.
    if (count <= 0) giveUp("the floor can't reach " + file.toRead);
  }
}

double Contest::timed(Side side, Direction direction, unsigned int input) {
  const double start = secondsOfThread();
  run(side, direction, input);
  return secondsOfThread() - start;
}

/// Every dump is a new file, as in a capture, in memory that the one before it
/// has just given back.
void Contest::removeDumps(Side side, const Input& input) {
  for (const File& file : input.files) unlink(file.dumped[side].c_str());
}

double Contest::round(Direction direction) {
  double librarySeconds = 0;
  Simulation::m_LscIndex.clear();
  plain::forgetLensShading();
  for (unsigned int input = 0; input < inputs_.size(); ++input, ++turns_) {
    for (unsigned int place = 0; place < kSides; ++place) {
      const unsigned int step = turns_ % 2 == 0 ? place : kSides - place;
      const auto side = static_cast<Side>((turns_ / 2 + step) % kSides);
      const double seconds = timed(side, direction, input);
      fastest_[side][input] = std::min(fastest_[side][input], seconds);
      if (direction == kDump) removeDumps(side, inputs_[input]);
      if (side == kLibrary) librarySeconds += seconds;
    }
  }
  ++turns_;
  return librarySeconds;
}

double Contest::secondsOf(Side side) const { return medianOf(fastest_[side]); }

}  // namespace bench
