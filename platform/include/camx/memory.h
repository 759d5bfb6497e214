// The memory services that libsimulation takes from the camera pipeline, which
// accounts for large and long-lived allocations. On a device the pipeline
// defines these functions; on a workstation platform/host does.
#pragma once

#include <cstddef>
#include <new>

/// `size` zero-filled bytes, or null. Released with CamxFree.
void* CamxCalloc(std::size_t size);

/// Releases what CamxCalloc returned; null is allowed.
void CamxFree(void* memory);

/// The pipeline's tracking allocation: null when nothing can be had. What it
/// returns is released by the ordinary operator delete. The library passes
/// zeros for both numbers, the source name and the line.
void* operator new(std::size_t size, int, int, const char* sourceFile, int line) noexcept;

/// Called in place of the above when a constructor throws.
void operator delete(void* memory, int, int, const char* sourceFile, int line) noexcept;
