#include "simrec/quantity.h"

#include <charconv>

namespace simrec {
namespace {

/// A whole number, and what follows it.
struct Quantity {
  std::int64_t number;
  std::string_view unit;
};

std::optional<Quantity> quantityFrom(std::string_view text) {
  Quantity quantity = {};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, quantity.number);
  if (error != std::errc() || quantity.number < 0) return std::nullopt;
  quantity.unit = text.substr(static_cast<std::size_t>(rest - text.data()));
  return quantity;
}

struct Unit {
  std::string_view name;
  std::int64_t size;
};

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr Unit kAges[] = {
    {"s", kSecond}, {"m", 60 * kSecond}, {"h", 3600 * kSecond}, {"d", 86400 * kSecond}};
constexpr Unit kCounts[] = {{"", 1}};
constexpr Unit kSizes[] = {{"", 1}, {"K", 1 << 10}, {"M", 1 << 20}, {"G", 1 << 30}};

template <std::size_t kCount>
std::optional<std::int64_t> in(const Unit (&units)[kCount], std::string_view text) {
  const auto quantity = quantityFrom(text);
  for (const Unit& unit : units) {
    std::int64_t result = 0;
    if (!quantity || quantity->unit != unit.name) continue;
    if (__builtin_mul_overflow(quantity->number, unit.size, &result)) return std::nullopt;
    return result;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::int64_t> ageFrom(std::string_view text) { return in(kAges, text); }

std::optional<std::uint64_t> countFrom(std::string_view text) { return in(kCounts, text); }

std::optional<std::uint64_t> sizeFrom(std::string_view text) { return in(kSizes, text); }

}  // namespace simrec
