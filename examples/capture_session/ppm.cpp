#include "ppm.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <utility>

namespace capture {
namespace {

constexpr int kMaxSide = 65535, kMaxSample = 65535;

struct Header {
  int width = 0, height = 0, maxSample = 0;
};

/// The next character of the header; a comment counts as the end of its line.
int headerCharacter(std::istream& file) {
  int c = file.get();
  if (c != '#') return c;
  while (c != '\n' && c != EOF) c = file.get();
  return c;
}

bool isBlank(int c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isDigit(int c) { return c >= '0' && c <= '9'; }

/// The next number and the one blank that ends it. False when there is none, or
/// when it is not 1 to `limit`.
bool readNumber(std::istream& file, int limit, int* number) {
  int c = headerCharacter(file);
  while (isBlank(c)) c = headerCharacter(file);
  *number = 0;
  for (; isDigit(c) && *number <= limit; c = headerCharacter(file)) {
    *number = *number * 10 + (c - '0');
  }
  return isBlank(c) && *number >= 1 && *number <= limit;
}

std::string readHeader(std::istream& file, Header* header) {
  char magic[2] = {};
  if (!file.read(magic, 2) || magic[0] != 'P' || magic[1] != '6') {
    return "is no binary PPM (it does not start with P6)";
  }
  if (!readNumber(file, kMaxSide, &header->width) || !readNumber(file, kMaxSide, &header->height)) {
    return "has no width and height of 1 to 65535";
  }
  if (!readNumber(file, kMaxSample, &header->maxSample)) return "has no maximum of 1 to 65535";
  return "";
}

std::vector<double> linearValues(int maxSample) {
  std::vector<double> values;
  for (int i = 0; i <= maxSample; ++i) values.push_back(fromSrgb(double(i) / maxSample));
  return values;
}

/// The factor, a whole number, by which an image is reduced to a scene's size.
int reductionOf(const Header& header) {
  return std::max((header.width + kMaxSceneWidth - 1) / kMaxSceneWidth,
                  (header.height + kMaxSceneHeight - 1) / kMaxSceneHeight);
}

/// Adds up the rows of a file into the pixels of a scene.
class Reducer {
 public:
  explicit Reducer(const Header& header)
      : header_(header),
        values_(linearValues(header.maxSample)),
        wide_(header.maxSample > 255),
        factor_(reductionOf(header)),
        width_((header.width + factor_ - 1) / factor_),
        height_((header.height + factor_ - 1) / factor_),
        pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

  std::size_t rowBytes() const { return static_cast<std::size_t>(header_.width) * (wide_ ? 6 : 3); }

  void add(int y, const std::uint8_t* row) {
    Rgb* out = &pixels_[static_cast<std::size_t>(y / factor_) * static_cast<std::size_t>(width_)];
    for (int x = 0; x < header_.width; ++x) {
      const double weight = 1.0 / (covered(x, header_.width) * covered(y, header_.height));
      const double r = next(&row), g = next(&row), b = next(&row);
      out[x / factor_] = out[x / factor_] + Rgb{r, g, b} * weight;
    }
  }

  Scene scene() { return Scene(width_, height_, std::move(pixels_)); }

 private:
  double next(const std::uint8_t** at) const {
    int sample = *(*at)++;
    if (wide_) sample = sample * 256 + *(*at)++;
    return values_[static_cast<std::size_t>(std::min(sample, header_.maxSample))];
  }

  /// How many of the file's pixels fall on the scene's pixel on which `at` does.
  int covered(int at, int size) const { return std::min(factor_, size - at / factor_ * factor_); }

  Header header_;
  std::vector<double> values_;
  bool wide_;
  int factor_, width_, height_;
  std::vector<Rgb> pixels_;
};

}  // namespace

std::string readPpm(const std::string& path, Scene* scene) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::strerror(errno);
  Header header;
  std::string problem = readHeader(file, &header);
  if (!problem.empty()) return problem;

  Reducer reducer(header);
  std::vector<std::uint8_t> row(reducer.rowBytes());
  for (int y = 0; y < header.height; ++y) {
    if (!file.read(reinterpret_cast<char*>(row.data()), static_cast<std::streamsize>(row.size()))) {
      return "is truncated: row " + std::to_string(y + 1) + " of " + std::to_string(header.height) +
             " is not complete";
    }
    reducer.add(y, row.data());
  }
  *scene = reducer.scene();
  return "";
}

}  // namespace capture
