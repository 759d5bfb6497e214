#include "simrec/report/png.h"

#include <png.h>

#include <stdexcept>

namespace simrec::report {
namespace {

static_assert(sizeof(Color) == 3, "libpng reads and writes colours where they are");

std::string written(png_image& image, const void* pixels, const void* palette) {
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::string bytes(size, '\0');
  if (png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels, 0, palette) == 0) {
    throw std::runtime_error(std::string("a picture can't be made: ") + image.message);
  }
  bytes.resize(size);
  return bytes;
}

png_image imageOf(std::size_t width, std::size_t height, png_uint_32 format) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = format;
  return image;
}

}  // namespace

std::string pngOf(const Picture& picture) {
  png_image image = imageOf(picture.width, picture.height, PNG_FORMAT_RGB_COLORMAP);
  image.colormap_entries = static_cast<png_uint_32>(picture.palette->size());
  return written(image, picture.pixels.data(), picture.palette->data());
}

std::string pngOf(std::size_t width, std::size_t height, const std::vector<Color>& pixels) {
  png_image image = imageOf(width, height, PNG_FORMAT_RGB);
  return written(image, pixels.data(), nullptr);
}

}  // namespace simrec::report
