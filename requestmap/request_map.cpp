#include "requestmap/request_map.h"

#include <mutex>
#include <string_view>
#include <utility>

#include "core/data_paths.h"
#include "core/fatal.h"
#include "core/log.h"
#include "core/path.h"

namespace simulation {
namespace {

std::mutex mapLock;

/// Slot numbers are never trusted: a damaged map aborts instead of spreading.
RequestData& slotAt(RequestMap& map, std::int32_t index) {
  requireBelow(static_cast<std::uint32_t>(index), std::uint32_t{kRingSlots});
  return map.entries[index];
}

std::int32_t after(std::int32_t index) { return (index + 1) % kRingSlots; }

std::int32_t before(std::int32_t index) { return index == 0 ? kRingSlots - 1 : index - 1; }

/// The newest slot whose `id` is `value`, or null. Empty slots have the id 0.
RequestData* newestWith(RequestMap& map, std::uint64_t RequestData::*id, std::uint64_t value) {
  std::int32_t index = map.rear;
  for (std::int32_t visited = 0; visited < kRingSlots; ++visited, index = before(index)) {
    RequestData& slot = slotAt(map, index);
    if (slot.*id == value) return &slot;
  }
  return nullptr;
}

void setImage(RequestData& slot, std::string_view name, std::uint32_t index) {
  slot.imageName[name.copy(slot.imageName, sizeof slot.imageName - 1)] = '\0';
  slot.index = index;
}

/// Lets go of what a full or restarted ring can't keep.
void makeRoom(RequestMap& map) {
  const RequestData& newest = slotAt(map, map.rear);
  if (newest.chiID == 0) {
    map.dequeueAll();
  } else if (after(map.rear) == map.front) {
    map.dequeue();
  } else {
    SimulationLog(kVerbose, "Request Map Not FULL for fwkID:%d", shown(newest.fwkID));
  }
}

/// Gives the slot last written the name that was parked for its frame.
void takeParkedName(RequestMap& map, RequestData& slot) {
  for (RequestData& parked : map.tmpEntries) {
    if (parked.fwkID != slot.fwkID) continue;
    setImage(slot, parked.imageName, parked.index);
    parked = RequestData();
    SimulationLog(kVerbose, "add request fwkID:%d<==>chiID:%d<==>imgName:%s<==>index:%d",
                  shown(slot.fwkID), shown(slot.chiID), slot.imageName, map.rear);
    return;
  }
}

/// `position` is the frame's place among those of its image.
void nameFrame(RequestMap& map, unsigned int frame, std::size_t position, const char* imageName) {
  const std::uint64_t offset = map.m_OffPreReqStart;
  const std::uint64_t fwkID = offset < frame ? frame - offset : frame;
  if (RequestData* slot = newestWith(map, &RequestData::fwkID, fwkID)) {
    setImage(*slot, imageName, static_cast<std::uint32_t>(position));
    SimulationLog(kVerbose, "find fwkNum:%d imageName:%s requestIndex:%d m_OffPreReqStart:%d",
                  shown(frame), imageName, shown(position), shown(offset));
    return;
  }
  SimulationLog(kVerbose,
                "not find fwkNum:%d in map, imageName:%s,add for tmp requestIndex:%lu, "
                "m_OffPreReqStart:%d",
                shown(frame), imageName, static_cast<unsigned long>(position), shown(offset));
  if (position >= kParkedNames) return;
  RequestData& parked = map.tmpEntries[position];
  parked.fwkID = fwkID;
  setImage(parked, imageName, static_cast<std::uint32_t>(position));
}

void moveToImage(RequestMap& map, const RequestData& request, std::uint32_t camId, Path& folder) {
  Path imageFolder(kDataRoot, "/", request.imageName);
  SimulationLog(kDebug, "move_file from :%s to %s for fwkID:%d<==>chi:%d<==>camx:%d",
                folder.c_str(), imageFolder.c_str(), shown(request.fwkID), shown(request.chiID),
                shown(request.camxID[camId]));
  map.move_file(folder.data(), imageFolder.data());
}

void deleteDumps(RequestMap& map, const Path& folder) {
  if (map.delete_directory(folder.c_str(), true) == 0) {
    SimulationLog(kDebug, "Directory:%s deleted successfully.", folder.c_str());
  } else {
    SimulationLog(kError, "Error deleting directory:%s.", folder.c_str());
  }
}

/// Moves or deletes what one camera dumped for a request that has left the ring.
void releaseDumps(RequestMap& map, const RequestData& request, std::uint32_t camId) {
  SimulationLog(kVerbose,
                "dequeue:fwkID:%d<==>chi:%d<==>camx:%d----camid:%d imageName:%s new frontId:%d",
                shown(request.fwkID), shown(request.chiID), shown(request.camxID[camId]),
                shown(camId), request.imageName, map.front);
  Path folder = requestFolder(static_cast<std::uint32_t>(request.camxID[camId]), camId);
  if (request.imageName[0] != '\0') {
    moveToImage(map, request, camId, folder);
  } else {
    deleteDumps(map, folder);
  }
}

}  // namespace
}  // namespace simulation

using namespace simulation;

void RequestMap::enqueue(RequestData data) {
  const std::lock_guard<std::mutex> lock(mapLock);
  makeRoom(*this);
  rear = after(rear);
  RequestData& slot = slotAt(*this, rear);
  slot.fwkID = data.fwkID;
  slot.chiID = data.chiID;
  takeParkedName(*this, slot);
  SimulationLog(kVerbose, "add request fwkID:%d<==>chiID:%d<==>index:%d", shown(data.fwkID),
                shown(data.chiID), rear);
}

void RequestMap::dequeue() {
  if (front == rear) {
    SimulationLog(kVerbose, "Request Map Empty");
    return;
  }
  RequestData& slot = slotAt(*this, front);
  const RequestData request = std::exchange(slot, {});
  front = after(front);
  for (std::uint32_t camId = 0; camId < kCameras; ++camId) {
    if ((request.camMask >> camId & 1) != 0) releaseDumps(*this, request, camId);
  }
}

int RequestMap::dequeueAll() {
  const std::int32_t count = front < rear ? rear - front : rear - front + kRingSlots;
  for (std::int32_t i = 0; i < count; ++i) {
    dequeue();
    SimulationLog(kVerbose, "dequeueAll:i =%d ,front =%d, rear =%d, count = %d", i, front, rear,
                  count);
  }
  return delete_directory(kScratchFolder, false);
}

void RequestMap::insertForCamx(std::uint64_t chiID, std::uint64_t camxID, std::uint32_t camId) {
  requireBelow(camId, kCameras);
  const std::lock_guard<std::mutex> lock(mapLock);
  RequestData* const slot = newestWith(*this, &RequestData::chiID, chiID);
  if (slot == nullptr) return;
  slot->camxID[camId] = camxID;
  slot->camMask = static_cast<std::uint8_t>(slot->camMask | 1U << camId);
  SimulationLog(kVerbose, "iFromCamx:fwkID:%d<==>chiId:%d<==>camxID:%d<==>index:%d",
                shown(slot->fwkID), shown(chiID), shown(camxID), static_cast<int>(slot - entries));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a copy, made before anything else
void RequestMap::addForImageName(std::vector<unsigned int> frameNumbers, const char* imageName) {
  if (imageName == nullptr || imageName[0] == '\0') return;
  const std::lock_guard<std::mutex> lock(mapLock);
  for (std::size_t position = 0; position < frameNumbers.size(); ++position) {
    nameFrame(*this, frameNumbers[position], position, imageName);
  }
}

SimulationRequestMap::~SimulationRequestMap() { dequeue(); }
