#include "tests/support/camx_memory.h"

#include <camx/memory.h>

#include <cstdlib>
#include <mutex>
#include <set>

namespace {

std::mutex mutex;
std::set<void*> blocks;
bool noBlocks = false;
bool noObjects = false;

}  // namespace

void* CamxCalloc(std::size_t size) {
  const std::lock_guard<std::mutex> lock(mutex);
  return noBlocks ? nullptr : *blocks.insert(std::calloc(1, size)).first;
}

void CamxFree(void* memory) {
  const std::lock_guard<std::mutex> lock(mutex);
  blocks.erase(memory);
  std::free(memory);
}

void* operator new(std::size_t size, int, int, const char*, int) noexcept {
  return noObjects ? nullptr : ::operator new(size, std::nothrow);
}

void operator delete(void* memory, int, int, const char*, int) noexcept {
  ::operator delete(memory);
}

std::size_t takeUnreleasedBlocks() {
  const std::size_t count = blocks.size();
  while (!blocks.empty()) CamxFree(*blocks.begin());
  return count;
}

NoMemory::NoMemory(Service service) { (service == kBlocks ? noBlocks : noObjects) = true; }
NoMemory::~NoMemory() { noBlocks = noObjects = false; }
