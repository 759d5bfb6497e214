#include "tests/support/platform.h"

#include <android/log.h>
#include <camx/memory.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <set>
#include <utility>

namespace {

std::mutex mutex;
LogLines lines;
std::set<void*> blocks;
bool noBlocks = false;
bool noObjects = false;

}  // namespace

int __android_log_print(int priority, const char* tag, const char* format, ...) {
  char text[4096];
  va_list arguments;
  va_start(arguments, format);
  const int length = vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  const bool known = std::string(tag) == "[SIMULATION]";
  const std::lock_guard<std::mutex> lock(mutex);
  lines.push_back({priority, known ? text : std::string("under another tag: ") + text});
  return length;
}

LogLines takeLog() {
  const std::lock_guard<std::mutex> lock(mutex);
  return std::exchange(lines, {});
}

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
