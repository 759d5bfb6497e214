// System properties on a workstation: the environment variable of the
// property's own name, dots included (`env persist.vendor.x=3 program`).
#include <cutils/properties.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <limits>

int32_t property_get_int32(const char* key, int32_t default_value) {
  const char* text = std::getenv(key);
  if (text == nullptr) return default_value;
  char* end = nullptr;
  errno = 0;
  const long long value = std::strtoll(text, &end, 0);
  const bool fits =
      value >= std::numeric_limits<int32_t>::min() && value <= std::numeric_limits<int32_t>::max();
  return end != text && errno == 0 && fits ? static_cast<int32_t>(value) : default_value;
}
