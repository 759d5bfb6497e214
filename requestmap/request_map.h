// The ring of the newest requests, which ties framework frame, CHI request and
// CamX requests to an image name, and moves or deletes a request's dump folders
// when it leaves the ring.
//
// Threads: enqueue, insertForCamx and addForImageName hold the one lock of all
// maps while they run. Nothing else takes it: call the rest, and touch the
// members, when none of the three is under way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace simulation {

inline constexpr std::uint32_t kCameras = 6;
inline constexpr std::int32_t kRingSlots = 50;
inline constexpr std::size_t kParkedNames = 12;

}  // namespace simulation

/// One slot of the ring, or one parked name. All zero when it is free.
struct RequestData {
  std::uint64_t fwkID = 0;   ///< framework frame number
  std::uint64_t chiID = 0;   ///< CHI request id; 0: the slot is empty
  std::uint8_t camMask = 0;  ///< bit n: camera n has its CamX id in camxID[n]
  std::uint64_t camxID[simulation::kCameras] = {};
  char imageName[64] = {};  ///< empty: no image was saved (yet)
  std::uint32_t index = 0;  ///< of this frame among those of its image
};
static_assert(offsetof(RequestData, camxID) == 24 && offsetof(RequestData, imageName) == 72 &&
              offsetof(RequestData, index) == 136 && sizeof(RequestData) == 144);

class RequestMap {
 public:
  RequestMap() = default;

  /// Adds a request; only the framework and CHI ids of `data` count. When the
  /// slot last written is empty the map is flushed first, when the ring is full
  /// the oldest request leaves it.
  void enqueue(RequestData data);

  /// Takes the request at `front` out of the ring: its dump folders are moved
  /// or deleted. The newest request stays.
  void dequeue();

  /// Dequeues as often as the ring has slots from `front` to `rear` (50 times
  /// when they are equal), then empties the scratch folder. The result of that.
  int dequeueAll();

  /// Records the CamX id of one camera in the newest slot of `chiID`, if there is one;
  /// an empty slot is one of 0. Aborts when there is no such camera.
  void insertForCamx(std::uint64_t chiID, std::uint64_t camxID, std::uint32_t camId);

  /// Names the slots of the frames, or parks the name at the frame's position. Works
  /// on a copy of the numbers: the caller's own may change meanwhile.
  void addForImageName(std::vector<unsigned int> frameNumbers, const char* imageName);

  /// Moves the entries of `srcDir` into `dstDir`, which must exist, and removes
  /// `srcDir` if nothing is left in it. An entry that `dstDir` has already, or
  /// that can't be renamed, stays. Not 0 when `srcDir` can't be opened.
  int move_file(char* srcDir, char* dstDir);

  /// Deletes all that is in `path`, and `path` itself if `removeSelf`. Stops at
  /// the first failure and returns it (not 0); the rest stays. A link to a folder
  /// is walked into, and then a failure: it can't be removed as a folder.
  int delete_directory(const char* path, bool removeSelf);

  std::int32_t front = 0;              ///< the slot that the next dequeue takes
  std::int32_t rear = 0;               ///< the slot last written
  std::uint64_t m_OffPreReqStart = 0;  ///< subtracted from the frame numbers of images
  RequestData entries[simulation::kRingSlots];
  RequestData tmpEntries[simulation::kParkedNames];  ///< names that came before their request
};
static_assert(offsetof(RequestMap, rear) == 4 && offsetof(RequestMap, m_OffPreReqStart) == 8 &&
              offsetof(RequestMap, entries) == 16 && offsetof(RequestMap, tmpEntries) == 7216 &&
              sizeof(RequestMap) == 8944);

/// The map of the process: dequeues once more when the process exits, which lets go
/// of a request only where `front` is at one and not at `rear`.
class SimulationRequestMap : public RequestMap {
 public:
  ~SimulationRequestMap();
};
