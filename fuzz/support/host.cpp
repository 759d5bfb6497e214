#include "fuzz/support/host.h"

#include <android/log.h>
#include <camx/memory.h>
#include <sanitizer/allocator_interface.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <utility>

#include "core/fatal.h"
#include "core/record_document.h"
#include "fuzz/support/fuzz.h"

namespace {

std::vector<std::string> lines;
std::set<void*> blocks;

// A document is known by its size: the first block of that size is one, until it
// is released; later ones belong to its content. Its memory comes from more than
// one allocation function, so the sanitizer's own hooks watch for it; they must
// not allocate.
bool watching = false;
const volatile void* document = nullptr;

void onAllocation(const volatile void* memory, std::size_t size) {
  if (!watching || document != nullptr) return;
  if (size == sizeof(simulation::RecordDocument)) document = memory;
}

void onRelease(const volatile void* memory) {
  if (memory == document) document = nullptr;
}

const int installed = __sanitizer_install_malloc_and_free_hooks(onAllocation, onRelease);

}  // namespace

int __android_log_print(int, const char* tag, const char* format, ...) {
  std::array<char, 4096> text;
  va_list arguments;
  va_start(arguments, format);
  const int length = vsnprintf(text.data(), text.size(), format, arguments);
  va_end(arguments);
  fuzz::require(length >= 0 && length < 1024 && std::strcmp(tag, "[SIMULATION]") == 0,
                "a message has a tag and is cut");
  lines.emplace_back(text.data());
  return 1;
}

void* CamxCalloc(std::size_t size) { return *blocks.insert(std::calloc(1, size)).first; }

void CamxFree(void* memory) {
  blocks.erase(memory);
  std::free(memory);
}

void simulation::fatal() { throw fuzz::Fatal(); }

namespace fuzz {

std::vector<std::string> takeLog() { return std::exchange(lines, {}); }

void startWatching() {
  require(installed > 0, "the sanitizer tells of allocations");
  document = nullptr;
  watching = true;
}

bool releaseKeptDocument() {
  watching = false;
  auto* const kept = static_cast<simulation::RecordDocument*>(const_cast<void*>(document));
  delete kept;
  return kept != nullptr;
}

int releaseKeptBlocks() {
  const int count = static_cast<int>(blocks.size());
  while (!blocks.empty()) CamxFree(*blocks.begin());
  return count;
}

}  // namespace fuzz
