#include "core/list_end.h"

#include "core/sixteen.h"

namespace simulation {
namespace {

constexpr std::size_t kStep = 64;

bool isListed(char character) {
  return (character >= '0' && character <= '9') || character == ' ' || character == '.' ||
         character == '-' || character == '\n';
}

/// '-', '.', '/' and the digits follow each other.
Lanes areListed(Sixteen text) {
  const Lanes near = reinterpret_cast<Lanes>(text - '-' <= '9' - '-') & ~isEqual(text, '/');
  return near | isEqual(text, ' ') | isEqual(text, '\n');
}

bool allListed(const char* text) {
  Lanes listed = areListed(loadSixteen(text));
  for (std::size_t i = 16; i < kStep; i += 16) listed &= areListed(loadSixteen(text + i));
  return !hasBits(~listed);
}

}  // namespace

std::size_t listEnd(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (text.size() - end >= kStep && allListed(text.data() + end)) end += kStep;
  while (end < text.size() && isListed(text[end])) ++end;
  return end;
}

}  // namespace simulation
